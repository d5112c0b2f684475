#pragma once

#include <string>

#include "tools/common/Decimal.h"

namespace tool {

/// How bad a state is; the worse, the greater.
enum class Severity { kUnknown, kFine, kWarning, kMinor, kMajor, kCritical, kFatal };

/// Whether somebody should look.
constexpr bool isIll(Severity severity) {
    return severity > Severity::kFine;
}

/// What the numbers of CIM_ManagedSystemElement.HealthState and .OperationalStatus and of
/// CIM_LogEntry.PerceivedSeverity mean; what they do not define is unknown.
Severity severityOfHealthState(const Decimal& code);
Severity severityOfStatus(const Decimal& code);
Severity severityOfEntry(const Decimal& code);

/// `warning`, `critical` and so on, for programs; `ok` when fine.
std::string nameOf(Severity severity);

}  // namespace tool
