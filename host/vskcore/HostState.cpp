#include "vskcore/HostState.h"

#include <boost/make_shared.hpp>

#include "vskcore/ILogger.h"
#include "vskcore/TNamespaceProviderManager.h"

namespace NQELVSK20 {

namespace {

class TDiscardingLogger : public ILogger {
public:
    void Log(int /*level*/, const std::string& /*text*/) override {}
};

}  // namespace

THostState& HostState() {
    static THostState state{DiscardingLogger(), DefaultProviderManager(), 1, {}, false, {}, true};
    return state;
}

ILogger* DiscardingLogger() {
    static TDiscardingLogger logger;
    return &logger;
}

boost::shared_ptr<INamespaceProviderManager> DefaultProviderManager() {
    static const auto manager = boost::make_shared<TNamespaceProviderManager>();
    return manager;
}

}  // namespace NQELVSK20
