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
    static THostState state{DiscardingLogger(), boost::make_shared<TNamespaceProviderManager>(), 1, {}};
    return state;
}

ILogger* DiscardingLogger() {
    static TDiscardingLogger logger;
    return &logger;
}

}  // namespace NQELVSK20
