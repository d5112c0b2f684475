#include "cimom/common/Text.h"

#include <algorithm>

namespace cimom {
namespace {

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

std::string lowered(std::string_view name) {
    std::string key(name);
    std::transform(key.begin(), key.end(), key.begin(), lower);
    return key;
}

bool sameName(std::string_view one, std::string_view other) {
    return one.size() == other.size() && std::equal(one.begin(), one.end(), other.begin(),
                                                    [](char a, char b) { return lower(a) == lower(b); });
}

std::string_view trimmed(std::string_view text) {
    const char* const blanks = " \t\r\n";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

}  // namespace cimom
