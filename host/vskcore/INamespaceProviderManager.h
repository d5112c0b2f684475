#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

namespace NQELVSK20 {

class INamespaceProvider;

/// The host's registry of namespace providers.
class INamespaceProviderManager {
public:
    virtual ~INamespaceProviderManager() = default;

    /// Makes the provider findable by its name; a second provider of the same name takes the first one's
    /// place. An empty pointer is refused with status 15.
    virtual void RegisterProvider(boost::shared_ptr<INamespaceProvider> provider) = 0;

    /// The provider of a name, compared byte for byte; empty when there is none.
    virtual boost::shared_ptr<INamespaceProvider> FindProvider(const std::string& name) const = 0;
};

}  // namespace NQELVSK20
