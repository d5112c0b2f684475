#pragma once

#include <string>
#include <vector>

#include "tools/machine/Machine.h"
#include "tools/machine/RequestStatistics.h"

namespace tool {

/// The statistics as the lines of a table: a heading, a line for each node and operation, the total.
std::vector<std::string> statisticsTable(const RequestStatistics& statistics, const Machine& machine);

}  // namespace tool
