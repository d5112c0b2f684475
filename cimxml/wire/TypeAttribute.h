#pragma once

#include <Pegasus/Common/CIMType.h>

#include <optional>

#include "cimxml/wire/Attributes.h"

namespace cimxml {

/// The attributes that tell the type of an element's value, and the size of an array of it.

/// Attribute TYPE. Throws WireError BadXml when it is missing or no CIM type.
Pegasus::CIMType readType(const Attributes& node);

/// Attribute PARAMTYPE or, as some servers call it, TYPE; nothing when there is neither.
std::optional<Pegasus::CIMType> readParameterType(const Attributes& node);

/// CIMTYPE_OBJECT or CIMTYPE_INSTANCE when attribute EmbeddedObject, in one of its two spellings, says so.
std::optional<Pegasus::CIMType> readEmbeddedType(const Attributes& node);

/// Attribute ARRAYSIZE: the size of a fixed-size array; zero, which means any, when it is not there or makes
/// no sense.
Pegasus::Uint32 readArraySize(const Attributes& node);

}  // namespace cimxml
