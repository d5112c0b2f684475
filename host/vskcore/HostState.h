#pragma once

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <string>

namespace NQELVSK20 {

class ILogger;
class INamespaceProviderManager;

/// What THostSetup sets and the host's services read.
struct THostState {
    ILogger* logger;                                               // not owned; never null
    boost::shared_ptr<INamespaceProviderManager> providerManager;  // empty: the host has none
    unsigned long long nodeCount;
    boost::function<int(int)> bmcMapping;  // empty: each index to itself
    bool referencesOwnNamespace;
    boost::function<std::string(const std::string&, unsigned char)> printedForm;  // empty: the text itself
    bool remembersLayouts;
};

/// The process's one state.
THostState& HostState();

/// A logger that discards everything; never null, lives as long as the process.
ILogger* DiscardingLogger();

/// The process's registry of providers; never empty.
boost::shared_ptr<INamespaceProviderManager> DefaultProviderManager();

}  // namespace NQELVSK20
