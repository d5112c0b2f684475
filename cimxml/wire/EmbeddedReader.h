#pragma once

#include <Pegasus/Common/CIMObject.h>

#include <pugixml.hpp>

#include "cimxml/wire/DecodeContext.h"

namespace cimxml {

/// Reads an object that is embedded as text in a value (DSP0201, EmbeddedObject).
class EmbeddedReader {
public:
    explicit EmbeddedReader(DecodeContext& context) : context_(context) {}

    /// The class or instance whose CIM-XML is the text of `value`: its outermost element says which. Throws
    /// WireError BadXml.
    Pegasus::CIMObject read(pugi::xml_node value);

private:
    Pegasus::CIMObject readDocument(pugi::xml_node value);

    DecodeContext& context_;
};

}  // namespace cimxml
