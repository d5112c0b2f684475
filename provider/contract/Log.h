#pragma once

#include <string>

namespace NQELVSK20 {

/// Log levels of this plug-in, as the host's core logger knows them.
enum LogLevel : int { kLogError = 0, kLogTrace = 3 };

/// Writes one whole message to the host's core logger.
void LogError(const std::string& text);
void LogTrace(const std::string& text);

}  // namespace NQELVSK20
