#include "cimxml/common/Utf8.h"

#include <algorithm>

namespace Pegasus {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool isHighSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}

bool isLowSurrogate(char32_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}

void appendCodePoint(std::string& out, char32_t c) {
    const auto put = [&out](char32_t byte) { out.push_back(static_cast<char>(byte)); };
    if (c < 0x80) {
        put(c);
    } else if (c < 0x800) {
        put(0xC0 | c >> 6);
        put(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        put(0xE0 | c >> 12);
        put(0x80 | (c >> 6 & 0x3F));
        put(0x80 | (c & 0x3F));
    } else {
        put(0xF0 | c >> 18);
        put(0x80 | (c >> 12 & 0x3F));
        put(0x80 | (c >> 6 & 0x3F));
        put(0x80 | (c & 0x3F));
    }
}

/// Appends the characters of one byte that a text begins with, which mostly are all; returns their end.
const Char16* appendAscii(std::string& out, const Char16* begin, const Char16* end) {
    const Char16* const stop = std::find_if(begin, end, [](char32_t c) { return c >= 0x80; });
    const std::size_t size = out.size();
    out.resize(size + static_cast<std::size_t>(stop - begin));
    std::transform(begin, stop, out.data() + size, [](char32_t c) { return static_cast<char>(c); });
    return stop;
}

}  // namespace

void appendUtf8(std::string& out, const String& text) {
    const Char16* const end = text.getChar16Data() + text.size();
    const Char16* p = appendAscii(out, text.getChar16Data(), end);
    while (p != end) {
        const char32_t c = *p++;
        if (isHighSurrogate(c) && p != end && isLowSurrogate(*p)) {
            appendCodePoint(out, 0x10000 + ((c - 0xD800) << 10) + (*p++ - 0xDC00u));
        } else {
            appendCodePoint(out, isHighSurrogate(c) || isLowSurrogate(c) ? kReplacement : c);
        }
    }
}

void appendUtf8(std::string& out, Char16 unit) {
    const char32_t c = unit;
    appendCodePoint(out, isHighSurrogate(c) || isLowSurrogate(c) ? kReplacement : c);
}

std::string toUtf8(const String& text) {
    std::string out;
    out.reserve(text.size());
    appendUtf8(out, text);
    return out;
}

String fromUtf8(const std::string& text) {
    return String(text.data(), static_cast<Uint32>(text.size()));
}

}  // namespace Pegasus
