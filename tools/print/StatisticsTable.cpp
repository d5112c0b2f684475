#include "tools/print/StatisticsTable.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>

#include "tools/common/SafeText.h"
#include "tools/common/Utf8.h"

namespace tool {

namespace {

constexpr const char* kNodeHeading = "Node";
constexpr std::size_t kOperationWidth = 22;  // the longest is EnumerateInstanceNames

std::string statisticsLine(const std::string& operation, const RequestStatistics::Count& count) {
    const std::chrono::duration<double> seconds = count.time;
    return fmt::format("  {}  {:>8}  {:>6}  {:>9.3f}", padTo(operation, kOperationWidth), count.requests,
                       count.failures, seconds.count());
}

}  // namespace

std::vector<std::string> statisticsTable(const RequestStatistics& statistics, const Machine& machine) {
    std::size_t width = lengthOf(kNodeHeading);
    for (const auto& entry : statistics.counts()) {
        width = std::max(width, lengthOf(machine.where(entry.first.first)));
    }
    std::vector<std::string> lines{fmt::format("{}  {}  {:>8}  {:>6}  {:>9}", padTo(kNodeHeading, width),
                                               padTo("Operation", kOperationWidth), "Requests", "Failed",
                                               "Seconds")};
    for (const auto& [key, count] : statistics.counts()) {
        lines.push_back(padTo(machine.where(key.first), width) + statisticsLine(key.second, count));
    }
    lines.push_back(padTo("All", width) + statisticsLine("", statistics.total()));
    return lines;
}

}  // namespace tool
