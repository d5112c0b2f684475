#include "cimxml/wire/Percent.h"

#include "cimxml/wire/Ascii.h"

namespace cimxml {

namespace {

bool isPlain(char c) {
    const char lower = toLower(c);
    return (lower >= 'a' && lower <= 'z') || isDigit(c) ||
           std::string_view("!'()*-._~").find(c) != std::string_view::npos;
}

/// Value of a hexadecimal digit, or -1.
int hexDigit(char c) {
    const char lower = toLower(c);
    if (isDigit(c)) {
        return c - '0';
    }
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

}  // namespace

std::string percentEncode(std::string_view text) {
    static constexpr std::string_view digits = "0123456789ABCDEF";
    std::string encoded;
    encoded.reserve(text.size());
    for (const char c : text) {
        if (isPlain(c)) {
            encoded += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            encoded += {'%', digits[byte >> 4U], digits[byte & 15U]};
        }
    }
    return encoded;
}

std::string percentDecode(std::string_view text) {
    std::string decoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool complete = text[i] == '%' && i + 2 < text.size();
        const int high = complete ? hexDigit(text[i + 1]) : -1;
        const int low = complete ? hexDigit(text[i + 2]) : -1;
        if (high < 0 || low < 0) {
            decoded += text[i];
            continue;
        }
        decoded += static_cast<char>(high * 16 + low);
        i += 2;
    }
    return decoded;
}

}  // namespace cimxml
