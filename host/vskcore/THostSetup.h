#pragma once

#include <boost/function.hpp>

namespace NQELVSK20 {

class ILogger;

/// What the program that hosts plug-ins, or a test in its place, sets before they run. Plug-ins never call
/// it. Process-wide; not to be called while a plug-in operation runs on another thread.
class THostSetup {
public:
    /// Sets the logger that TRootObject hands out; not owned, must outlive its use. Null: discard.
    static void SetCoreLogger(ILogger* logger);

    /// Sets the number of controller nodes that VQMInfo reports.
    static void SetNodeCount(unsigned long long count);

    /// Sets how node indexes map to controller numbers (see SPLibrary); empty: each to itself.
    static void SetBMCMapping(boost::function<int(int)> mapping);
};

}  // namespace NQELVSK20
