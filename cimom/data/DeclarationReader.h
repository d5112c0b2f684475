#pragma once

#include <string>
#include <string_view>

#include "cimom/data/NameSpace.h"

namespace cimom {

/// Adds the declarations of a CIM-XML text (CIM/DECLARATION, DSP0201) to a namespace. Throws
/// std::runtime_error with source, line and reason; what stood before the error has then been added.
void readDeclarations(std::string_view xml, const std::string& source, NameSpace& nameSpace);

}  // namespace cimom
