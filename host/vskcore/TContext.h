#pragma once

#include <map>
#include <string>

namespace NQELVSK20 {

class TCIMValue;

/// Named values that travel with nearly every host operation, by value: the callee owns its copy.
using TContext = std::map<std::string, TCIMValue>;

}  // namespace NQELVSK20
