#pragma once

#include <cstddef>
#include <pugixml.hpp>

namespace cimxml {

/// Parses `size` bytes in place: the nodes point into `text`, which has to outlive them. Nothing is loaded
/// from outside, and no entity is expanded but the five of XML itself and character references. `options` are
/// the parser's, beyond the ones that every text is parsed with. Throws WireError BadXml, which tells the
/// offset and what was expected there, for a text that is not well-formed or whose elements are nested more
/// than `maxDepth` deep.
void parseInPlace(pugi::xml_document& document, char* text, std::size_t size, unsigned options,
                  unsigned maxDepth);

}  // namespace cimxml
