#pragma once

#include <boost/shared_ptr.hpp>
#include <map>
#include <mutex>
#include <string>

#include "vskcore/INamespaceProviderManager.h"

namespace NQELVSK20 {

/// The process's registry of providers, by name. Safe to use from several threads.
class TNamespaceProviderManager : public INamespaceProviderManager {
public:
    void RegisterProvider(boost::shared_ptr<INamespaceProvider> provider) override;
    boost::shared_ptr<INamespaceProvider> FindProvider(const std::string& name) const override;

private:
    mutable std::mutex mutex_;
    std::map<std::string, boost::shared_ptr<INamespaceProvider>> providers_;
};

}  // namespace NQELVSK20
