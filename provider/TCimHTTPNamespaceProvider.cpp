#include "cimhttp/TCimHTTPNamespaceProvider.h"

#include <utility>

#include "cimhttp/TCimHTTPNamespace.h"
#include "provider/contract/HostReport.h"
#include "provider/contract/PluginProvider.h"
#include "vskcore/INamespaceProviderManager.h"
#include "vskcore/TCIMValue.h"
#include "vskcore/TRootObject.h"

namespace NQELVSK20 {

boost::shared_ptr<TCimHTTPNamespaceProvider> TCimHTTPNamespaceProvider::GetInstance() {
    static const boost::shared_ptr<TCimHTTPNamespaceProvider> kInstance(new TCimHTTPNamespaceProvider);
    return kInstance;
}

boost::shared_ptr<INamespaceProvider> PluginProvider() {
    return TCimHTTPNamespaceProvider::GetInstance();
}

TVSKStatusCode TCimHTTPNamespaceProvider::Initialize() {
    const auto manager = TRootObject::GetNamespaceProviderManager();
    if (PointerIsSet(manager != nullptr, "TCimHTTPNamespaceProvider::Initialize")) {
        manager->RegisterProvider(GetInstance());
    }
    return kStatusSuccess;
}

const std::string& TCimHTTPNamespaceProvider::GetName(TContext) const {
    static const std::string kName = "cimhttp";
    return kName;
}

boost::shared_ptr<ICIMNamespace> TCimHTTPNamespaceProvider::AllocateNamespace(TContext context,
                                                                              bool replaceDuplicates,
                                                                              std::string name) const {
    const boost::shared_ptr<TCimHTTPNamespace> nameSpace(
        new TCimHTTPNamespace(replaceDuplicates, std::move(name)));
    nameSpace->Initialize(std::move(context));
    return nameSpace;
}

INamespaceProvider::EType TCimHTTPNamespaceProvider::GetType(TContext) const {
    return kRemoteProvider;
}

bool TCimHTTPNamespaceProvider::IsIndicationsSupported(TContext) const {
    return false;
}

}  // namespace NQELVSK20
