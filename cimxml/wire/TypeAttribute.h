#pragma once

#include <Pegasus/Common/CIMType.h>

#include <optional>
#include <pugixml.hpp>

namespace cimxml {

/// The attributes that tell the type of an element's value, and the size of an array of it.

/// Attribute TYPE. Throws WireError BadXml when it is missing or no CIM type.
Pegasus::CIMType readType(pugi::xml_node node);

/// Attribute PARAMTYPE or, as some servers call it, TYPE; nothing when there is neither.
std::optional<Pegasus::CIMType> readParameterType(pugi::xml_node node);

/// CIMTYPE_OBJECT or CIMTYPE_INSTANCE when attribute EmbeddedObject, in one of its two spellings, says so.
std::optional<Pegasus::CIMType> readEmbeddedType(pugi::xml_node node);

/// Attribute ARRAYSIZE: the size of a fixed-size array; zero, which means any, when it is not there or makes
/// no sense.
Pegasus::Uint32 readArraySize(pugi::xml_node node);

}  // namespace cimxml
