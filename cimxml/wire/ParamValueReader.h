#pragma once

#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/CIMValue.h>

#include <optional>
#include <pugixml.hpp>

#include "cimxml/wire/DecodeContext.h"

namespace cimxml {

/// Reads the results of a method: RETURNVALUE and PARAMVALUE elements.
class ParamValueReader {
public:
    explicit ParamValueReader(DecodeContext& context) : context_(context) {}

    /// PARAMVALUE. Without a type it is what its content shows, else a string, and untyped. Throws WireError
    /// BadXml.
    Pegasus::CIMParamValue read(pugi::xml_node node);

    /// RETURNVALUE. Throws WireError BadXml.
    Pegasus::CIMValue readReturnValue(pugi::xml_node node);

private:
    Pegasus::CIMValue readContent(pugi::xml_node content, Pegasus::CIMType type);
    static std::optional<Pegasus::CIMType> typeOf(pugi::xml_node node);

    DecodeContext& context_;
};

}  // namespace cimxml
