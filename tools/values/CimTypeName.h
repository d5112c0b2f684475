#pragma once

#include <string>

#include "vskcore/TCIMValue.h"

namespace tool {

/// The scalar code of a type: of "array of uint8" the code of uint8.
NQELVSK20::TCIMValue::TCIMType::ECIMType scalarType(NQELVSK20::TCIMValue::TCIMType type);

/// True for the code of an array.
bool isArrayType(NQELVSK20::TCIMValue::TCIMType type);

/// CIM's name of a type (DSP0004), e.g. "uint16", "datetime", "reference"; the same for an array of it.
/// Embedded objects, which the plug-in does not convert, give "object".
std::string cimTypeName(NQELVSK20::TCIMValue::TCIMType type);

}  // namespace tool
