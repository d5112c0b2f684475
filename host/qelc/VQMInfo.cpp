#include "qelc/VQMInfo.h"

#include "vskcore/HostState.h"

namespace NQELVSK20 {

VQMInfo* VQMInfo::GetInstance() {
    static VQMInfo info;
    return &info;
}

unsigned long long VQMInfo::GetNodeCount() const {
    return HostState().nodeCount;
}

}  // namespace NQELVSK20
