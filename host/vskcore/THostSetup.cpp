#include "vskcore/THostSetup.h"

#include "vskcore/HostState.h"

namespace NQELVSK20 {

void THostSetup::SetCoreLogger(ILogger* logger) {
    HostState().logger = logger != nullptr ? logger : DiscardingLogger();
}

void THostSetup::SetNodeCount(unsigned long long count) {
    HostState().nodeCount = count;
}

void THostSetup::SetBMCMapping(boost::function<int(int)> mapping) {
    HostState().bmcMapping = mapping;
}

}  // namespace NQELVSK20
