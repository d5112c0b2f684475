#pragma once

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMMethod.h>
#include <Pegasus/Common/CIMParameter.h>

#include <pugixml.hpp>

#include "cimxml/wire/DecodeContext.h"

namespace cimxml {

/// Reads METHOD elements and the parameter declarations in them.
class MethodReader {
public:
    explicit MethodReader(DecodeContext& context) : context_(context) {}

    /// Throws WireError BadXml.
    Pegasus::CIMMethod read(pugi::xml_node node);

    /// Adds the methods among the children of `node`.
    void addTo(Pegasus::CIMClass& owner, pugi::xml_node node);

private:
    Pegasus::CIMParameter readParameter(pugi::xml_node node);

    DecodeContext& context_;
};

}  // namespace cimxml
