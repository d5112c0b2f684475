#pragma once

#include <functional>
#include <string>

#include "tools/common/Options.h"

namespace tool {

/// Gives the options what the configuration says of the machine that `--machine` names, but for what the
/// command line says itself, as `isGiven` tells of an option. Without such a machine nothing happens. Throws
/// UsageError when it is unknown and for options that do not go together.
void takeMachine(Options& options, const std::function<bool(const std::string& option)>& isGiven);

}  // namespace tool
