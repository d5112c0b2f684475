#pragma once

namespace tool {

/// What the program tells its caller; each number has one meaning. The help and README.md list them.
enum ExitStatus : int {
    kAnswered = 0,
    kNothingFound = 1,    ///< What was asked for does not exist, and no node failed.
    kDiffers = 1,         ///< compare: the two are not equal.
    kWrongUsage = 2,      ///< The command line cannot be meant so; no method was run.
    kNodeFailed = 3,      ///< There is an answer without the part of a node that failed.
    kNoAnswer = 4,        ///< Those that could have answered failed.
    kMethodReturned = 5,  ///< A method was run and returned another number than 0.
    kLocalFailure = 6     ///< This side failed: the answer cannot be written, for example.
};

}  // namespace tool
