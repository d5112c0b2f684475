#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tool {

/// One step through UTF-8 text.
struct CodePoint {
    char32_t value = 0;
    std::size_t size = 1;  ///< Bytes that it takes, at least 1.
    bool valid = false;    ///< False: the byte at the position begins no well-formed sequence.
};

/// The code point at `position`, which must lie inside the text.
CodePoint codePointAt(std::string_view text, std::size_t position);

/// Number of code points; a malformed byte counts as one.
std::size_t lengthOf(std::string_view text);

/// A code point as UTF-8; a surrogate or a value above U+10FFFF gives U+FFFD.
std::string toUtf8(char32_t value);

}  // namespace tool
