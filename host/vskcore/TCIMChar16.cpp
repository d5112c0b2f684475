#include "vskcore/TCIMChar16.h"

#include <charconv>
#include <system_error>

namespace NQELVSK20 {

TCIMChar16::TCIMChar16(const std::string& decimalCode) {
    std::uint16_t code = 0;
    const char* end = decimalCode.data() + decimalCode.size();
    const auto [stop, error] = std::from_chars(decimalCode.data(), end, code);
    if (error == std::errc() && stop == end) {
        code_ = code;
    }
}

std::string TCIMChar16::ToString() const {
    return std::to_string(code_);
}

}  // namespace NQELVSK20
