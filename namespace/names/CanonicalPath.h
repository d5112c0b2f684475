#pragma once

#include <string>

namespace NQELVSK20 {

/// A text that is the same for all object paths (DSP0004) that name the same object of a namespace: host and
/// namespace left out, class and key names in lower case, keys in one order, references among the key values
/// treated likewise. Empty for a malformed path. Good for comparing only; it is no path itself.
std::string CanonicalPath(const std::string& path);

}  // namespace NQELVSK20
