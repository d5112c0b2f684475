#include "tools/common/Integer.h"

#include <charconv>
#include <system_error>

namespace tool {

bool Integer::operator<=(const Integer& other) const {
    if (negative != other.negative) {
        return negative;
    }
    return negative ? other.size <= size : size <= other.size;
}

std::optional<Integer> parseInteger(const std::string& text) {
    Integer number;
    const bool isSigned = !text.empty() && (text.front() == '-' || text.front() == '+');
    std::size_t start = isSigned ? 1 : 0;
    const bool isHex = text.compare(start, 2, "0x") == 0 || text.compare(start, 2, "0X") == 0;
    start += isHex ? 2 : 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data() + start, end, number.size, isHex ? 16 : 10);
    if (error != std::errc() || stop != end) {
        return std::nullopt;
    }
    number.negative = isSigned && text.front() == '-' && number.size != 0;
    return number;
}

}  // namespace tool
