#pragma once

#include <Pegasus/Common/CIMInstance.h>

#include <pugixml.hpp>

#include "cimxml/wire/DecodeContext.h"

namespace cimxml {

/// Reads INSTANCE elements and the elements that give an instance with its path.
class InstanceReader {
public:
    explicit InstanceReader(DecodeContext& context) : context_(context) {}

    /// INSTANCE, whose path is then the class name only. Throws WireError BadXml.
    Pegasus::CIMInstance read(pugi::xml_node node);

    /// VALUE.NAMEDINSTANCE, VALUE.INSTANCEWITHPATH, or a bare INSTANCE. Throws WireError BadXml.
    Pegasus::CIMInstance readNamed(pugi::xml_node node);

private:
    Pegasus::CIMInstance readContent(pugi::xml_node node, Pegasus::CIMInstance instance);

    DecodeContext& context_;
};

}  // namespace cimxml
