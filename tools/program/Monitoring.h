#pragma once

#include <functional>
#include <string>

#include "tools/console/Notices.h"
#include "tools/console/Output.h"

namespace tool {

/// Whether the arguments ask for a monitoring plug-in's line, also when they are wrong otherwise.
bool isMonitoring(int argc, const char* const* argv);

/// Runs what answers with a plug-in's exit status. Whatever goes wrong is "unknown", and is told on standard
/// output as well: nobody reads the other.
int runAsMonitor(const std::function<int()>& answer, Output& output, Notices& notices);

}  // namespace tool
