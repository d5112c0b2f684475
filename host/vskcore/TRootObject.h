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

    static boost::shared_ptr<INamespaceProviderManager> GetNamespaceProviderManager();
};

}  // namespace NQELVSK20
