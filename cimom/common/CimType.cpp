#include "cimom/common/CimType.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdint>
#include <cstdlib>
#include <limits>

#include "cimom/common/Text.h"

namespace cimom {
namespace {

/// An integer of any CIM type: magnitude and sign.
struct Integer {
    bool negative = false;
    std::uint64_t magnitude = 0;
};

struct IntegerType {
    std::string_view name;
    std::uint64_t largest;           ///< Largest value.
    std::uint64_t largestMagnitude;  ///< Magnitude of the smallest value.
};

template <typename Type>
constexpr IntegerType integerType(std::string_view name) {
    constexpr auto largest = static_cast<std::uint64_t>(std::numeric_limits<Type>::max());
    return {name, largest, std::numeric_limits<Type>::is_signed ? largest + 1 : 0};
}

constexpr std::array<IntegerType, 8> kIntegerTypes{
    integerType<std::uint8_t>("uint8"),   integerType<std::int8_t>("sint8"),
    integerType<std::uint16_t>("uint16"), integerType<std::int16_t>("sint16"),
    integerType<std::uint32_t>("uint32"), integerType<std::int32_t>("sint32"),
    integerType<std::uint64_t>("uint64"), integerType<std::int64_t>("sint64")};

constexpr std::array<std::string_view, 7> kOtherTypes{"boolean", "string",   "char16",   "real32",
                                                      "real64",  "datetime", "reference"};

const IntegerType* findIntegerType(std::string_view name) {
    const auto* found = std::find_if(kIntegerTypes.begin(), kIntegerTypes.end(),
                                     [&](const IntegerType& type) { return type.name == name; });
    return found == kIntegerTypes.end() ? nullptr : found;
}

std::optional<std::uint64_t> parseMagnitude(std::string_view digits, unsigned base) {
    if (digits.empty()) {
        return std::nullopt;
    }
    std::uint64_t value = 0;
    for (const char c : digits) {
        if (std::isxdigit(static_cast<unsigned char>(c)) == 0) {
            return std::nullopt;
        }
        const auto digit = static_cast<unsigned>(c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10);
        if (digit >= base || value > (std::numeric_limits<std::uint64_t>::max() - digit) / base) {
            return std::nullopt;
        }
        value = value * base + digit;
    }
    return value;
}

std::optional<Integer> parseInteger(std::string_view text) {
    text = trimmed(text);
    Integer integer;
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
        integer.negative = text.front() == '-';
        text.remove_prefix(1);
    }
    const bool hex = text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
    const auto magnitude = hex ? parseMagnitude(text.substr(2), 16) : parseMagnitude(text, 10);
    if (!magnitude) {
        return std::nullopt;
    }
    integer.magnitude = *magnitude;
    return integer;
}

std::string toText(const Integer& integer) {
    return (integer.negative && integer.magnitude != 0 ? "-" : "") + std::to_string(integer.magnitude);
}

std::optional<std::string> canonicalInteger(const IntegerType& type, const std::string& text) {
    const auto integer = parseInteger(text);
    if (!integer || integer->magnitude > (integer->negative ? type.largestMagnitude : type.largest)) {
        return std::nullopt;
    }
    return toText(*integer);
}

std::optional<std::string> canonicalBoolean(const std::string& text) {
    const std::string word = lowered(trimmed(text));
    if (word != "true" && word != "false") {
        return std::nullopt;
    }
    return word == "true" ? "TRUE" : "FALSE";
}

bool isReal(const std::string& text) {
    const std::string word(trimmed(text));
    if (word == "INF" || word == "-INF" || word == "NaN") {
        return true;
    }
    const bool plain = !word.empty() && word.find_first_not_of("+-.0123456789eE") == std::string::npos;
    char* end = nullptr;
    std::strtod(word.c_str(), &end);
    return plain && *end == '\0';
}

/// One UCS-2 character: one, two or three bytes of UTF-8.
bool isCharacter(const std::string& text) {
    const auto continues = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };
    return !text.empty() && text.size() <= 3 && !continues(text[0]) &&
           std::all_of(text.begin() + 1, text.end(), continues);
}

/// 25 characters: digits or asterisks, with a point and a sign or colon at their places (DSP0004).
bool isDatetime(const std::string& text) {
    constexpr std::size_t kLength = 25;
    constexpr std::size_t kPoint = 14;
    constexpr std::size_t kSign = 21;
    if (text.size() != kLength || text[kPoint] != '.' ||
        std::string_view("+-:").find(text[kSign]) == std::string_view::npos) {
        return false;
    }
    for (std::size_t i = 0; i < kLength; ++i) {
        const bool digit = (text[i] >= '0' && text[i] <= '9') || text[i] == '*';
        if (i != kPoint && i != kSign && !digit) {
            return false;
        }
    }
    return true;
}

}  // namespace

KeyBinding::Kind keyKindOf(std::string_view cimType) {
    if (cimType == "boolean") {
        return KeyBinding::Kind::Boolean;
    }
    if (cimType == "reference") {
        return KeyBinding::Kind::Reference;
    }
    const bool numeric = findIntegerType(cimType) != nullptr || cimType == "real32" || cimType == "real64";
    return numeric ? KeyBinding::Kind::Numeric : KeyBinding::Kind::String;
}

std::string canonicalNumber(std::string_view text) {
    const auto integer = parseInteger(text);
    return integer ? toText(*integer) : std::string(trimmed(text));
}

std::optional<std::string> canonicalValue(std::string_view cimType, const std::string& text) {
    if (const IntegerType* type = findIntegerType(cimType)) {
        return canonicalInteger(*type, text);
    }
    if (cimType == "boolean") {
        return canonicalBoolean(text);
    }
    const bool fits = cimType == "string" || (cimType == "char16" && isCharacter(text)) ||
                      (cimType == "datetime" && isDatetime(text)) ||
                      ((cimType == "real32" || cimType == "real64") && isReal(text));
    return fits ? std::optional<std::string>(text) : std::nullopt;
}

bool isCimType(std::string_view name) {
    return findIntegerType(name) != nullptr ||
           std::find(kOtherTypes.begin(), kOtherTypes.end(), name) != kOtherTypes.end();
}

}  // namespace cimom
