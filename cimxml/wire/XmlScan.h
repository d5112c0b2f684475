#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace cimxml {

/// What a first pass over an XML text found.
struct XmlScan {
    std::size_t nodes = 0;            ///< An upper bound on its elements and attributes together.
    bool mixed = false;               ///< It has comments or CDATA sections, which may interrupt a text.
    std::size_t unreadable = 0;       ///< Places in the texts of its values that hold no character.
    std::size_t firstUnreadable = 0;  ///< The first of them, in bytes.
};

/// Checks an XML text for what the parser does not: that it is UTF-8 (RFC 3629), and that it holds no
/// character, plain or as a reference, that XML 1.0 does not allow. One pass, before any memory is taken for
/// nodes. What is no character is counted where it stands in the text of a value, since controllers send the
/// names of their sensors and parts so; anywhere else WireError BadXml with the offset is thrown, and also
/// when there are more than `maxNodes` nodes.
XmlScan scanXml(std::string_view text, std::size_t maxNodes);

/// A text that scanXml took, with U+FFFD in the place of everything that it counted as unreadable. Of broken
/// UTF-8 that is each longest part that begins a character, or one byte (Unicode, section 3.9).
std::string withReadableCharacters(std::string_view text);

}  // namespace cimxml
