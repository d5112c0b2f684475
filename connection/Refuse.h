#pragma once

#include <string>

#include "vskcore/TVSKStatusCode.h"

namespace NQELVSK20 {

/// Throws TVSKException with the status and nothing logged.
[[noreturn]] void Refuse(EVSKStatusCode status);

/// Logs the explanation at the level, then throws TVSKException with the status.
[[noreturn]] void Refuse(EVSKStatusCode status, int logLevel, const std::string& explanation);

}  // namespace NQELVSK20
