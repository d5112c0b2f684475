#pragma once

#include <cstddef>

#include "tools/console/Output.h"
#include "tools/health/HealthReport.h"

namespace tool {

/// Writes a machine's health for a person, on one screen if it can be: a line that sums up, the elements that
/// are not well with what the logs say of them, and what else is bad in the logs.
class HealthPrinter {
public:
    /// `width` of the terminal in columns; 0: lines are not cut.
    HealthPrinter(Output& output, std::size_t width) : output_(output), width_(width) {}

    /// With `all` the other elements follow.
    void print(const HealthReport& report, bool all);

private:
    void printElements(const HealthReport& report, const std::vector<Element>& elements);
    void printLog(const std::vector<LogEntry>& entries);
    void line(const std::string& text);

    Output& output_;
    std::size_t width_;
};

}  // namespace tool
