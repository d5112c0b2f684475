#include "vskcore/TNamespaceProviderManager.h"

#include "vskcore/ILogger.h"
#include "vskcore/INamespaceProvider.h"
#include "vskcore/TCIMValue.h"
#include "vskcore/TRootObject.h"
#include "vskcore/TVSKException.h"

namespace NQELVSK20 {

void TNamespaceProviderManager::RegisterProvider(boost::shared_ptr<INamespaceProvider> provider) {
    if (!provider) {
        TRootObject::GetCoreLogger()->Log(0, "Provider manager: there is no provider to register");
        throw TVSKException(eVSKNotFound);
    }
    const std::string name = provider->GetName({});
    const std::lock_guard<std::mutex> lock(mutex_);
    // Swapped, so that a provider that is replaced dies (with the argument) after the lock is released.
    providers_[name].swap(provider);
}

boost::shared_ptr<INamespaceProvider> TNamespaceProviderManager::FindProvider(const std::string& name) const {
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto found = providers_.find(name);
    return found != providers_.end() ? found->second : nullptr;
}

}  // namespace NQELVSK20
