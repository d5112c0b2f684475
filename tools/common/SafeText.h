#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tool {

/// Text from a server, made safe for a terminal and for one line: control characters (C0, C1, DEL, line and
/// paragraph separators, characters that turn the writing direction) and bytes that are no UTF-8 are written
/// as escapes, `\n`, `\t`, `\x1b` or `\u202e`. A backslash stays as it is: the text is for reading.
std::string safeText(std::string_view text);

/// Text for a program, whose form has room for line ends and tabs: what a person who looks at it would not
/// see, or would see elsewhere, is written as `\u007f`: NUL, DEL, C1, line and paragraph separators,
/// characters that turn the writing direction. The rest stays as it is.
std::string withoutHidden(std::string text);

/// The text cut to `width` code points, the last of them "…" when something was cut; 0: no limit.
std::string cutTo(const std::string& text, std::size_t width);

/// The text filled up with blanks to `width` code points.
std::string padTo(const std::string& text, std::size_t width);

}  // namespace tool
