#pragma once

#include <string>
#include <vector>

#include "tools/config/ConfigText.h"
#include "tools/config/MachineSettings.h"

namespace tool {

/// Reads what a section of the configuration says of its machine. Throws ConfigFault for a key or value that
/// cannot be meant, for a password, and for a machine without nodes.
MachineSettings readMachine(const ConfigSection& section);

}  // namespace tool
