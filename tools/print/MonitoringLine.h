#pragma once

#include <string>

#include "tools/health/HealthReport.h"

namespace tool {

/// What a monitoring plug-in tells the program that runs it, which is its exit status too.
enum class MonitoringStatus : int { kOk = 0, kWarning = 1, kCritical = 2, kUnknown = 3 };

/// Failures from "major" on are critical. `isComplete` is false when a node did not answer: what is well on
/// the others does not make a machine well.
MonitoringStatus monitoringStatus(const HealthReport& report, bool isComplete);

/// The line of a monitoring plug-in: `CIMHTTP WARNING - 2 of 58 elements ... | 'CPU Temp'=89;85;95`, with
/// every sensor's reading, warning and critical threshold behind the bar; on several nodes as `'1/CPU Temp'`;
/// with the device's id behind a name that comes again.
std::string monitoringLine(const HealthReport& report, bool isComplete);

/// The same of a machine that cannot be asked, and why.
std::string monitoringLine(const std::string& reason);

}  // namespace tool
