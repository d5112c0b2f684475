#pragma once

#include <string>

namespace NQELVSK20 {

/// The host's logger.
class ILogger {
public:
    virtual ~ILogger() = default;

    /// Writes one whole message. Levels in use: 0 for errors and broken invariants, 3 for trace lines and
    /// remote failures.
    virtual void Log(int level, const std::string& text) = 0;
};

}  // namespace NQELVSK20
