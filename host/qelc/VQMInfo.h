#pragma once

namespace NQELVSK20 {

/// What the machine's management controllers tell about themselves.
class VQMInfo {
public:
    /// The process's one object; never null, never to be freed by the caller.
    static VQMInfo* GetInstance();

    /// Number of controller nodes of the machine; 1 until the host sets it (THostSetup).
    unsigned long long GetNodeCount() const;

private:
    VQMInfo() = default;
};

}  // namespace NQELVSK20
