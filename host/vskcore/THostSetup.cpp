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

void THostSetup::SetNamespaceProviderManager(boost::shared_ptr<INamespaceProviderManager> manager) {
    HostState().providerManager = manager;
}

void THostSetup::RestoreNamespaceProviderManager() {
    HostState().providerManager = DefaultProviderManager();
}

void THostSetup::SetReferencesOwnNamespace(bool own) {
    HostState().referencesOwnNamespace = own;
}

void THostSetup::SetPrintedForm(boost::function<std::string(const std::string&, unsigned char)> form) {
    HostState().printedForm = form;
}

void THostSetup::SetRemembersLayouts(bool remembers) {
    HostState().remembersLayouts = remembers;
}

}  // namespace NQELVSK20
