#pragma once

#include <Pegasus/Common/CIMQualifier.h>

#include <pugixml.hpp>

#include "cimxml/wire/DecodeContext.h"

namespace cimxml {

/// Reads QUALIFIER elements.
class QualifierReader {
public:
    explicit QualifierReader(DecodeContext& context) : context_(context) {}

    /// Throws WireError BadXml.
    Pegasus::CIMQualifier read(pugi::xml_node node);

    /// Adds the qualifiers among the children of `node` to `owner`, which is anything with addQualifier.
    template <typename Owner>
    void addTo(Owner& owner, pugi::xml_node node);

private:
    DecodeContext& context_;
};

}  // namespace cimxml
