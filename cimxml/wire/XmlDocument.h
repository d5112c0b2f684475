#pragma once

#include <pugixml.hpp>
#include <string>

#include "cimxml/wire/DecodeContext.h"

namespace cimxml {

/// A parsed XML text. The nodes point into the text, which the document owns; nothing is loaded from
/// outside, and no entity is expanded but the five of XML itself and character references.
class XmlDocument {
public:
    /// Throws WireError BadXml, which tells the offset and what was expected there, for a text that is not
    /// well-formed or exceeds the context's limits.
    XmlDocument(std::string text, DecodeContext& context);

    /// The outermost element.
    pugi::xml_node root() const { return document_.document_element(); }

private:
    std::string text_;
    pugi::xml_document document_;
};

}  // namespace cimxml
