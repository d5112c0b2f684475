#pragma once

#include <string>

#include "tools/console/Notices.h"
#include "vskcore/ILogger.h"

namespace tool {

/// The host's core logger: errors are failures, and all other lines are shown when `verbose`.
class ConsoleLogger : public NQELVSK20::ILogger {
public:
    /// `notices` must outlive the logger.
    ConsoleLogger(Notices& notices, bool verbose) : notices_(notices), verbose_(verbose) {}

    void Log(int level, const std::string& text) override;

private:
    Notices& notices_;
    bool verbose_;
};

}  // namespace tool
