#pragma once

#include <cstddef>
#include <string_view>

namespace cimxml {

/// Letter case and blanks of protocol texts, free of the process's locale.

constexpr char toLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

constexpr bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

constexpr bool equalNoCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) {
        return false;
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (toLower(a[i]) != toLower(b[i])) {
            return false;
        }
    }
    return true;
}

constexpr bool startsWithNoCase(std::string_view text, std::string_view start) {
    return text.size() >= start.size() && equalNoCase(text.substr(0, start.size()), start);
}

constexpr std::string_view trim(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

}  // namespace cimxml
