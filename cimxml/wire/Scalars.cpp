#include "cimxml/wire/Scalars.h"

#include <Pegasus/Common/Exception.h>

#include <charconv>
#include <cmath>
#include <limits>

#include "cimxml/wire/Ascii.h"
#include "cimxml/wire/XmlNode.h"

namespace cimxml {

using namespace Pegasus;

namespace {

/// A sign taken off a number's text.
struct Signed {
    bool negative = false;
    std::string_view magnitude;
};

Signed takeSign(std::string_view text) {
    text = trim(text);
    const bool negative = !text.empty() && text.front() == '-';
    const bool positive = !text.empty() && text.front() == '+';
    return {negative, text.substr(negative || positive ? 1 : 0)};
}

std::string_view withoutZeroFraction(std::string_view digits) {
    const std::size_t point = digits.find('.');
    if (point == 0 || point == std::string_view::npos ||
        digits.find_first_not_of('0', point + 1) != std::string_view::npos) {
        return digits;
    }
    return digits.substr(0, point);
}

std::optional<Uint64> parseMagnitude(std::string_view digits) {
    const bool hexadecimal = startsWithNoCase(digits, "0x");
    digits = hexadecimal ? digits.substr(2) : withoutZeroFraction(digits);
    Uint64 value = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value, hexadecimal ? 16 : 10);
    if (error != std::errc() || stop != end) {
        return std::nullopt;
    }
    return value;
}

/// The power of ten of a decimal number, roughly: enough to tell a number too small from one too large.
bool isTiny(std::string_view magnitude) {
    const std::size_t exponent = magnitude.find_first_of("eE");
    if (exponent != std::string_view::npos) {
        return magnitude.substr(exponent + 1, 1) == "-";
    }
    return magnitude.substr(0, 1) == "0" || magnitude.substr(0, 1) == ".";
}

std::optional<double> parseMagnitudeAsReal(std::string_view magnitude) {
    if (equalNoCase(magnitude, "INF") || equalNoCase(magnitude, "Infinity")) {
        return std::numeric_limits<double>::infinity();
    }
    if (equalNoCase(magnitude, "NaN")) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    if (magnitude.empty() || (!isDigit(magnitude.front()) && magnitude.front() != '.')) {
        return std::nullopt;
    }
    double value = 0;
    const char* end = magnitude.data() + magnitude.size();
    const auto [stop, error] = std::from_chars(magnitude.data(), end, value);
    if (stop != end) {
        return std::nullopt;
    }
    if (error == std::errc::result_out_of_range) {
        return isTiny(magnitude) ? std::optional<double>(0.0) : std::nullopt;
    }
    return error == std::errc() ? std::optional<double>(value) : std::nullopt;
}

struct NamedType {
    std::string_view name;
    CIMType type;
};

// The common ones first.
constexpr NamedType types[] = {
    {"string", CIMTYPE_STRING},   {"uint16", CIMTYPE_UINT16}, {"uint32", CIMTYPE_UINT32},
    {"boolean", CIMTYPE_BOOLEAN}, {"uint64", CIMTYPE_UINT64}, {"datetime", CIMTYPE_DATETIME},
    {"sint32", CIMTYPE_SINT32},   {"uint8", CIMTYPE_UINT8},   {"sint16", CIMTYPE_SINT16},
    {"sint64", CIMTYPE_SINT64},   {"sint8", CIMTYPE_SINT8},   {"real32", CIMTYPE_REAL32},
    {"real64", CIMTYPE_REAL64},   {"char16", CIMTYPE_CHAR16}, {"reference", CIMTYPE_REFERENCE},
};

template <typename IsName>
std::optional<CIMType> findType(IsName isName) {
    for (const NamedType& known : types) {
        if (isName(known.name)) {
            return known.type;
        }
    }
    return std::nullopt;
}

}  // namespace

std::optional<Boolean> parseBoolean(std::string_view text) {
    text = trim(text);
    if (equalNoCase(text, "true") || text == "1") {
        return true;
    }
    if (equalNoCase(text, "false") || text == "0") {
        return false;
    }
    return std::nullopt;
}

template <typename Number>
std::optional<Number> parseInteger(std::string_view text) {
    const Signed number = takeSign(text);
    const std::optional<Uint64> magnitude = parseMagnitude(number.magnitude);
    // A negative number may go one further from zero than a positive one.
    const auto largest = static_cast<Uint64>(std::numeric_limits<Number>::max());
    const Uint64 smallest = std::is_signed_v<Number> ? largest + 1 : 0;
    if (!magnitude || *magnitude > (number.negative ? smallest : largest)) {
        return std::nullopt;
    }
    return static_cast<Number>(number.negative ? Uint64{0} - *magnitude : *magnitude);
}

template std::optional<Uint8> parseInteger(std::string_view);
template std::optional<Sint8> parseInteger(std::string_view);
template std::optional<Uint16> parseInteger(std::string_view);
template std::optional<Sint16> parseInteger(std::string_view);
template std::optional<Uint32> parseInteger(std::string_view);
template std::optional<Sint32> parseInteger(std::string_view);
template std::optional<Uint64> parseInteger(std::string_view);
template std::optional<Sint64> parseInteger(std::string_view);

template <typename Number>
std::optional<Number> parseReal(std::string_view text) {
    const Signed number = takeSign(text);
    const std::optional<double> magnitude = parseMagnitudeAsReal(number.magnitude);
    if (!magnitude) {
        return std::nullopt;
    }
    const auto narrowed = static_cast<Number>(*magnitude);
    if (std::isinf(narrowed) && !std::isinf(*magnitude)) {
        return std::nullopt;
    }
    return number.negative ? -narrowed : narrowed;
}

template std::optional<Real32> parseReal(std::string_view);
template std::optional<Real64> parseReal(std::string_view);

std::optional<Char16> parseChar16(std::string_view text) {
    const String characters = toString(text);
    if (characters.size() != 1) {
        return std::nullopt;
    }
    return characters[0];
}

std::optional<CIMDateTime> parseDateTime(std::string_view text) {
    text = trim(text);
    if (text.empty()) {
        return CIMDateTime();
    }
    try {
        return CIMDateTime(toString(text));
    } catch (const InvalidDateTimeFormatException&) {
        return std::nullopt;
    } catch (const DateTimeOutOfRangeException&) {
        return std::nullopt;
    }
}

std::optional<CIMType> parseType(std::string_view text) {
    if (const auto type = findType([text](std::string_view name) { return name == text; })) {
        return type;
    }
    return findType([text = trim(text)](std::string_view name) { return equalNoCase(name, text); });
}

}  // namespace cimxml
