#include "cimxml/common/Numbers.h"

#include <charconv>
#include <limits>

namespace Pegasus {

namespace {

constexpr Uint64 kSignedLimit = Uint64{1} << 63;

bool isSign(char c) {
    return c == '+' || c == '-';
}

const char* skipDigits(const char* p) {
    while (*p >= '0' && *p <= '9') {
        ++p;
    }
    return p;
}

bool isReal(const char* p) {
    if (isSign(*p)) {
        ++p;
    }
    p = skipDigits(p);
    if (*p++ != '.') {
        return false;
    }
    const char* const fraction = p;
    p = skipDigits(p);
    if (p == fraction) {
        return false;
    }
    if (*p != 'e' && *p != 'E') {
        return *p == '\0';
    }
    ++p;
    if (isSign(*p)) {
        ++p;
    }
    const char* const exponent = p;
    p = skipDigits(p);
    return p != exponent && *p == '\0';
}

}  // namespace

std::optional<Uint64> parseUnsigned(const std::string& text) {
    const bool isHex = text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
    if (!isHex && text.size() > 1 && text[0] == '0') {
        return std::nullopt;
    }
    const char* const first = text.data() + (isHex ? 2 : 0);
    const char* const last = text.data() + text.size();
    Uint64 value = 0;
    const auto [end, error] = std::from_chars(first, last, value, isHex ? 16 : 10);
    if (error != std::errc() || end != last) {
        return std::nullopt;
    }
    return value;
}

std::optional<Sint64> parseSigned(const std::string& text) {
    const bool isNegative = !text.empty() && text[0] == '-';
    const auto magnitude = parseUnsigned(!text.empty() && isSign(text[0]) ? text.substr(1) : text);
    if (!magnitude || *magnitude > (isNegative ? kSignedLimit : kSignedLimit - 1)) {
        return std::nullopt;
    }
    return static_cast<Sint64>(isNegative ? 0 - *magnitude : *magnitude);
}

std::optional<Real64> parseReal(const std::string& text) {
    if (!isReal(text.c_str()) || text.find('\0') != std::string::npos) {
        return std::nullopt;
    }
    Real64 value = 0;
    const char* const first = text.data() + (text[0] == '+' ? 1 : 0);
    const char* const last = text.data() + text.size();
    const auto [end, error] = std::from_chars(first, last, value);
    if (error != std::errc() || end != last) {
        return std::nullopt;
    }
    return value;
}

}  // namespace Pegasus
