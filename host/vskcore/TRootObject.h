#pragma once

#include <boost/shared_ptr.hpp>

namespace NQELVSK20 {

class ILogger;
class INamespaceProviderManager;

/// Where plug-ins find the host's services.
class TRootObject {
public:
    /// Never null; owned by the host. Discards everything until the host sets a logger (see THostSetup).
    static ILogger* GetCoreLogger();

    /// The host's registry of providers; another one, or none, when the host says so (see THostSetup).
    static boost::shared_ptr<INamespaceProviderManager> GetNamespaceProviderManager();
};

}  // namespace NQELVSK20
