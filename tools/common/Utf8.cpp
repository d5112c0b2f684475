#include "tools/common/Utf8.h"

namespace tool {

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kLargest = 0x10FFFF;

bool isSurrogate(char32_t value) {
    return value >= 0xD800 && value <= 0xDFFF;
}

// Bytes of a sequence that begins with `lead`, and the smallest value that needs so many; 0 bytes: no lead.
struct Form {
    std::size_t size;
    char32_t smallest;
    unsigned char bits;
};

Form formOf(unsigned char lead) {
    if (lead < 0x80) {
        return {1, 0, 0x7F};
    }
    if ((lead & 0xE0U) == 0xC0) {
        return {2, 0x80, 0x1F};
    }
    if ((lead & 0xF0U) == 0xE0) {
        return {3, 0x800, 0x0F};
    }
    if ((lead & 0xF8U) == 0xF0) {
        return {4, 0x10000, 0x07};
    }
    return {0, 0, 0};
}

}  // namespace

CodePoint codePointAt(std::string_view text, std::size_t position) {
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    const Form form = formOf(byte(position));
    if (form.size == 0 || position + form.size > text.size()) {
        return {byte(position), 1, false};
    }
    char32_t value = byte(position) & form.bits;
    for (std::size_t i = 1; i < form.size; ++i) {
        const unsigned char next = byte(position + i);
        if ((next & 0xC0U) != 0x80) {
            return {byte(position), 1, false};
        }
        value = (value << 6U) | (next & 0x3FU);
    }
    if (value < form.smallest || value > kLargest || isSurrogate(value)) {
        return {byte(position), 1, false};
    }
    return {value, form.size, true};
}

std::size_t lengthOf(std::string_view text) {
    std::size_t length = 0;
    for (std::size_t at = 0; at < text.size(); at += codePointAt(text, at).size) {
        ++length;
    }
    return length;
}

std::string toUtf8(char32_t value) {
    if (isSurrogate(value) || value > kLargest) {
        value = kReplacement;
    }
    const auto trailing = [&](unsigned shift) {
        return static_cast<char>(0x80U | ((value >> shift) & 0x3FU));
    };
    if (value < 0x80) {
        return {static_cast<char>(value)};
    }
    if (value < 0x800) {
        return {static_cast<char>(0xC0U | (value >> 6U)), trailing(0)};
    }
    if (value < 0x10000) {
        return {static_cast<char>(0xE0U | (value >> 12U)), trailing(6), trailing(0)};
    }
    return {static_cast<char>(0xF0U | (value >> 18U)), trailing(12), trailing(6), trailing(0)};
}

}  // namespace tool
