#pragma once

#include <Pegasus/Common/CIMType.h>
#include <Pegasus/Common/CIMValue.h>

#include <pugixml.hpp>

#include "cimxml/wire/DecodeContext.h"

namespace cimxml {

/// Reads the elements that hold a value (DSP0201, value elements).
///
/// The API's arrays have no null elements: VALUE.NULL in an array becomes the type's zero value (false, 0, an
/// empty string, the zero interval, the empty path, an instance of a class CIM_Null without properties), so
/// that every other element keeps its index.
class ValueReader {
public:
    explicit ValueReader(DecodeContext& context) : context_(context) {}

    /// VALUE, VALUE.ARRAY, VALUE.REFERENCE, VALUE.REFARRAY or VALUE.NULL. What arrives decides between scalar
    /// and array, and between references and the rest; otherwise it has type `type`. OBJECT and INSTANCE read
    /// embedded objects. Throws WireError BadXml for a text that is no value of the type.
    Pegasus::CIMValue read(pugi::xml_node node, Pegasus::CIMType type, bool array);

    /// As read, of a value that may be what it was when `name` was read last. Remembers it for the next time.
    Pegasus::CIMValue readAgain(pugi::xml_node node, Pegasus::CIMType type, bool array, KnownName& name);

private:
    Pegasus::CIMValue readScalar(pugi::xml_node node, Pegasus::CIMType type);
    Pegasus::CIMValue readArray(pugi::xml_node node, Pegasus::CIMType type);
    Pegasus::CIMValue readReferences(pugi::xml_node node);
    Pegasus::CIMValue readEmbedded(pugi::xml_node node, Pegasus::CIMType type);
    Pegasus::CIMValue readEmbeddedArray(pugi::xml_node node, Pegasus::CIMType type);

    DecodeContext& context_;
};

}  // namespace cimxml
