#pragma once

#include <Pegasus/Common/CIMClass.h>

#include <pugixml.hpp>

#include "cimxml/wire/DecodeContext.h"

namespace cimxml {

/// Reads CLASS elements.
class ClassReader {
public:
    explicit ClassReader(DecodeContext& context) : context_(context) {}

    /// Throws WireError BadXml.
    Pegasus::CIMClass read(pugi::xml_node node);

private:
    DecodeContext& context_;
};

}  // namespace cimxml
