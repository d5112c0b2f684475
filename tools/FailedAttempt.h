#pragma once

#include <string>

namespace tool {

/// An attempt at a request that failed. The plug-in's client makes a second one, except after a CIM error,
/// and reports only failures: that the second was answered shows in that no failure follows.
struct FailedAttempt {
    std::string operation;  ///< The client's, e.g. "InvokeMethod".
    std::string text;       ///< What a person is told: where, what was asked, what went wrong.
    std::string excuse;     ///< Why it does not matter if the request fails altogether; empty: it does.
};

}  // namespace tool
