#pragma once

#include <Pegasus/Common/CIMProperty.h>

#include <pugixml.hpp>

#include "cimxml/common/PropertyBlock.h"
#include "cimxml/wire/Attributes.h"
#include "cimxml/wire/DecodeContext.h"

namespace cimxml {

/// Reads PROPERTY, PROPERTY.ARRAY and PROPERTY.REFERENCE elements.
class PropertyReader {
public:
    explicit PropertyReader(DecodeContext& context) : context_(context) {}

    static bool isProperty(pugi::xml_node node);

    /// Adds the qualifiers and properties among the children of `node` to `owner`, a class or an instance.
    /// Other children than those and, in a class, methods are an error.
    template <typename Owner>
    void addTo(Owner& owner, pugi::xml_node node);

private:
    enum class Kind { Scalar, Array, Reference };

    /// What a property's element is made of.
    struct Parts {
        Kind kind = Kind::Scalar;
        pugi::xml_node value;  ///< The first child that is no qualifier; null when there is none.
        bool hasQualifiers = false;
    };
    static Parts partsOf(pugi::xml_node node);

    Pegasus::CIMProperty read(pugi::xml_node node, Pegasus::PropertyBlock& block);
    Pegasus::CIMValue readValue(const Attributes& node, const Parts& parts, KnownName& name);
    Pegasus::CIMType typeOf(const Attributes& node, const Parts& parts);
    Pegasus::CIMType embeddedByQualifier(pugi::xml_node node);

    DecodeContext& context_;
};

}  // namespace cimxml
