#pragma once

namespace NQELVSK20 {

/// The service-processor driver's view of the machine.
class SPLibrary {
public:
    /// Number of the controller node that serves a zero-based node index; the index itself until the host
    /// sets a mapping (THostSetup).
    static int GetBMCMapping(int nodeIndex);
};

}  // namespace NQELVSK20
