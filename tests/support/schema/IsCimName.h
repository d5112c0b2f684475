#pragma once

#include <string>

namespace NQELVSK20 {

/// True when the name can be one of CIM (DSP0004): not empty, ASCII letters, digits and underscores, no digit
/// first.
bool IsCimName(const std::string& name);

}  // namespace NQELVSK20
