#pragma once

#include <pugixml.hpp>
#include <string>

#include "cimxml/wire/DecodeContext.h"
#include "cimxml/wire/XmlScan.h"

namespace cimxml {

/// A parsed XML text. The nodes point into the text, which the document owns.
class XmlDocument {
public:
    /// Scans a text and takes its nodes off those that the context has left. Puts U+FFFD in the place of what
    /// is no character in values, and notes that in the context; offsets are then those of the text as it is
    /// afterwards. Throws WireError BadXml.
    static XmlScan admit(std::string& text, DecodeContext& context);

    /// Throws WireError BadXml for a text that is not well-formed or exceeds the context's limits.
    XmlDocument(std::string text, DecodeContext& context);
    /// Of a text that was admitted before.
    XmlDocument(std::string text, const XmlScan& scan, const DecodeContext& context);

    /// The outermost element.
    pugi::xml_node root() const { return document_.document_element(); }

private:
    void parse(const XmlScan& scan, const DecodeContext& context);

    std::string text_;
    pugi::xml_document document_;
};

}  // namespace cimxml
