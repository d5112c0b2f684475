#include "vskcore/TRootObject.h"

#include "vskcore/HostState.h"

namespace NQELVSK20 {

ILogger* TRootObject::GetCoreLogger() {
    return HostState().logger;
}

boost::shared_ptr<INamespaceProviderManager> TRootObject::GetNamespaceProviderManager() {
    return HostState().providerManager;
}

}  // namespace NQELVSK20
