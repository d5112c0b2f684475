#pragma once

#include <string>

namespace NQELVSK20 {

/// Checks that a pointer the caller relies on is set. When it is not, logs at level 0 where that was; a build
/// with assertions then stops the process, one without returns false and leaves the rest to the caller.
bool PointerIsSet(bool isSet, const std::string& where);

}  // namespace NQELVSK20
