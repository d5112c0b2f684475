#pragma once

namespace tool {

/// What the program tells its caller.
enum ExitStatus : int {
    kAnswered = 0,
    kNothingOrFailed = 1,  ///< Nothing found, or a server failed on the way, even if others answered.
    kWrongUsage = 2
};

}  // namespace tool
