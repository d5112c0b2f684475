#pragma once

#include <nlohmann/json_fwd.hpp>

#include "tools/health/HealthReport.h"

namespace tool {

/// A machine's health: {"severity", "elements": COUNT, "notWell": COUNT, "noState": COUNT, "found": [{"node",
/// "path", "class", "name", "severity", "state", "description", "reading", "log": [{"node", "time",
/// "severity", "text"}]}], "log": [...]}. With `all` the elements that are well are found, too.
nlohmann::ordered_json jsonHealth(const HealthReport& report, bool all);

}  // namespace tool
