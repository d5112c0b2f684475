#pragma once

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

namespace NQELVSK20 {

class ILogger;
class INamespaceProviderManager;

/// What THostSetup sets and the host's services read.
struct THostState {
    ILogger* logger;  // not owned; never null
    boost::shared_ptr<INamespaceProviderManager> providerManager;
    unsigned long long nodeCount;
    boost::function<int(int)> bmcMapping;  // empty: each index to itself
};

/// The process's one state.
THostState& HostState();

/// A logger that discards everything; never null, lives as long as the process.
ILogger* DiscardingLogger();

}  // namespace NQELVSK20
