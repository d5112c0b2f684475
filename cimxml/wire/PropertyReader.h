#pragma once

#include <Pegasus/Common/CIMProperty.h>

#include <pugixml.hpp>

#include "cimxml/wire/DecodeContext.h"

namespace cimxml {

/// Reads PROPERTY, PROPERTY.ARRAY and PROPERTY.REFERENCE elements.
class PropertyReader {
public:
    explicit PropertyReader(DecodeContext& context) : context_(context) {}

    static bool isProperty(pugi::xml_node node);

    /// Throws WireError BadXml.
    Pegasus::CIMProperty read(pugi::xml_node node);

    /// Adds the properties among the children of `node` to `owner`, a class or an instance. Other children
    /// than properties, qualifiers and, in a class, methods are an error.
    template <typename Owner>
    void addTo(Owner& owner, pugi::xml_node node);

private:
    Pegasus::CIMValue readValue(pugi::xml_node node, Pegasus::CIMType type, bool array);
    Pegasus::CIMType typeOf(pugi::xml_node node);
    Pegasus::CIMType embeddedByQualifier(pugi::xml_node node);

    DecodeContext& context_;
};

}  // namespace cimxml
