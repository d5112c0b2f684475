#include "tools/common/SafeText.h"

#include <fmt/format.h>

#include <algorithm>

#include "tools/common/Utf8.h"

namespace tool {

namespace {

bool turnsDirection(char32_t value) {
    return value == 0x061C || value == 0x200E || value == 0x200F || (value >= 0x202A && value <= 0x202E) ||
           (value >= 0x2066 && value <= 0x2069);
}

bool isHidden(char32_t value) {
    return value == 0 || (value >= 0x7F && value < 0xA0) || value == 0x2028 || value == 0x2029 ||
           turnsDirection(value);
}

bool isUnsafe(const CodePoint& point) {
    return !point.valid || point.value < 0x20 || isHidden(point.value);
}

// Whether what is hidden may begin with this byte, in UTF-8.
bool mayBeginHidden(char byte) {
    return byte == '\0' || byte == '\x7F' || byte == '\xC2' || byte == '\xD8' || byte == '\xE2';
}

std::string escaped(char32_t value) {
    switch (value) {
        case '\n':
            return "\\n";
        case '\r':
            return "\\r";
        case '\t':
            return "\\t";
        default:
            break;
    }
    const auto number = static_cast<unsigned>(value);
    return value < 0x100 ? fmt::format("\\x{:02x}", number) : fmt::format("\\u{:04x}", number);
}

}  // namespace

std::string safeText(std::string_view text) {
    std::string safe;
    safe.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const CodePoint point = codePointAt(text, at);
        if (isUnsafe(point)) {
            safe += escaped(point.value);
        } else {
            safe += text.substr(at, point.size);
        }
        at += point.size;
    }
    return safe;
}

std::string withoutHidden(std::string text) {
    if (std::none_of(text.begin(), text.end(), mayBeginHidden)) {
        return text;
    }
    std::string shown;
    for (std::size_t at = 0; at < text.size();) {
        const CodePoint point = codePointAt(text, at);
        if (point.valid && isHidden(point.value)) {
            shown += fmt::format("\\u{:04x}", static_cast<unsigned>(point.value));
        } else {
            shown.append(text, at, point.size);
        }
        at += point.size;
    }
    return shown;
}

std::string cutTo(const std::string& text, std::size_t width) {
    if (width == 0 || text.size() <= width || lengthOf(text) <= width) {
        return text;
    }
    std::size_t end = 0;
    for (std::size_t kept = 0; kept + 1 < width; ++kept) {
        end += codePointAt(text, end).size;
    }
    return text.substr(0, end) + "…";
}

std::string padTo(const std::string& text, std::size_t width) {
    const std::size_t length = lengthOf(text);
    return length < width ? text + std::string(width - length, ' ') : text;
}

}  // namespace tool
