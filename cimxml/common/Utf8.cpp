#include "cimxml/common/Utf8.h"

#include <algorithm>
#include <numeric>

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

}  // namespace

bool isAscii(const String& text) {
    const Char16* const p = text.getChar16Data();
    // Every bit that occurs: without a branch, a compiler can take many at once.
    return std::accumulate(p, p + text.size(), 0U, [](unsigned all, Uint16 c) { return all | c; }) < 0x80;
}

void copyAscii(char* out, const String& text) {
    const Char16* const p = text.getChar16Data();
    std::transform(p, p + text.size(), out, [](Uint16 c) { return static_cast<char>(c); });
}

void appendUtf8(std::string& out, const String& text) {
    if (isAscii(text)) {
        out.resize(out.size() + text.size());
        copyAscii(out.data() + out.size() - text.size(), text);
        return;
    }
    const Char16* p = text.getChar16Data();
    const Char16* const end = p + text.size();
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
