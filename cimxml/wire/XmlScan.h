#pragma once

#include <cstddef>
#include <string_view>

namespace cimxml {

/// What a first pass over an XML text found.
struct XmlScan {
    std::size_t nodes = 0;  ///< An upper bound on its elements and attributes together.
    bool mixed = false;     ///< It has comments or CDATA sections, which may interrupt a text.
};

/// Checks an XML text for what the parser does not: that it is UTF-8 (RFC 3629), and that it holds no
/// character, plain or as a reference, that XML 1.0 does not allow. One pass, before any memory is taken for
/// nodes. Throws WireError BadXml with the offset; also when there are more than `maxNodes` nodes.
XmlScan scanXml(std::string_view text, std::size_t maxNodes);

}  // namespace cimxml
