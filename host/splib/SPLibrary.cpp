#include "splib/SPLibrary.h"

#include "vskcore/HostState.h"

namespace NQELVSK20 {

int SPLibrary::GetBMCMapping(int nodeIndex) {
    const boost::function<int(int)>& mapping = HostState().bmcMapping;
    return mapping ? mapping(nodeIndex) : nodeIndex;
}

}  // namespace NQELVSK20
