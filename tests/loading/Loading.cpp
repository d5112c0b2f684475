// The plug-in in a process that loads it, uses it and unloads it.

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <functional>

#include "tests/loading/ReadInstances.h"
#include "tests/loading/ResourceUse.h"
#include "tests/loading/SharedLibrary.h"
#include "tests/support/Process.h"
#include "tests/support/StatusOf.h"
#include "tests/support/TestMachine.h"
#include "vskcore/ICIMNamespace.h"
#include "vskcore/ICIMQualifierDecl.h"
#include "vskcore/INamespaceProvider.h"
#include "vskcore/THostSetup.h"
#include "vskcore/TNamespaceProviderManager.h"
#include "vskcore/TRootObject.h"

namespace NQELVSK20 {
namespace {

using support::ResourceUse;
using support::SharedLibrary;

constexpr int kLoads = 100;
constexpr int kFirstLoads = 10;

// What the process may hold in the end beyond what it held after the first loads: less than a load would
// leave, were it left each time.
constexpr std::size_t kBytesALoad = 8192;
constexpr std::size_t kHandles = 10;
constexpr std::size_t kRegions = 20;

/// A host that keeps a registry of providers of its own, as long as it lives: nothing of a plug-in may be
/// left there when it is unloaded.
class Registry {
public:
    Registry() {
        THostSetup::SetNamespaceProviderManager(boost::make_shared<TNamespaceProviderManager>());
        // A thread would keep what it knows of the plug-in's last class.
        THostSetup::SetRemembersLayouts(false);
    }
    ~Registry() { THostSetup::RestoreNamespaceProviderManager(); }
    Registry(const Registry&) = delete;
    Registry& operator=(const Registry&) = delete;
};

/// The plug-in, loaded by a host that finds its entry point by name.
class LoadedPlugin {
public:
    LoadedPlugin() {
        library_.function<TVSKStatusCode()>("_ZN9NQELVSK2025TCimHTTPNamespaceProvider10InitializeEv")();
    }

    boost::shared_ptr<ICIMNamespace> allocate(const TContext& context) const {
        return TRootObject::GetNamespaceProviderManager()->FindProvider("cimhttp")->AllocateNamespace(
            context, false, "root/cimv2");
    }

private:
    const SharedLibrary library_{CIMHTTP_LIBRARY};
    const Registry registry_;  // emptied before the library goes
};

const TContext kPluginName{{"pluginNameQualDeclValue", TCIMValue("cimhttp.nsp")}};

void loadAndRegister() {
    const LoadedPlugin plugin;
    EXPECT_TRUE(plugin.allocate(kPluginName)->GetQualifierDecl("PLUGINNAME", {}));
}

/// The embedded server in a process of its own, so that it does not count.
class ServerProcess {
public:
    ServerProcess() : process_({CIMOM_PROGRAM, "--address", address()}) { process_.readUntil("https://"); }

    static std::string address() { return TestMachine::AddressOf(0); }

private:
    support::Process process_;
};

int loadAndRead(const char* className) {
    const SharedLibrary host(LOADED_HOST);
    const Registry registry;
    return host.function<decltype(readInstances)>("readInstances")(ServerProcess::address().c_str(),
                                                                   className);
}

/// Does something as often as a host may load and unload a plug-in, and expects the process to hold no more
/// after that than after the first few times.
void expectNothingLeft(std::size_t libraries, const std::function<void()>& action) {
    const ResourceUse runtime = ResourceUse::ofRuntime();
    constexpr std::size_t kMeasured = kLoads - kFirstLoads;
    ResourceUse before;
    for (int i = 0; i < kLoads && !::testing::Test::HasFailure(); ++i) {
        if (i == kFirstLoads) {
            before = ResourceUse::now();
        }
        action();
    }
    const ResourceUse after = ResourceUse::now();
    EXPECT_LE(after.bytes, before.bytes + kMeasured * (kBytesALoad + libraries * runtime.bytes));
    EXPECT_LE(after.handles, before.handles + kHandles + kMeasured * libraries * runtime.handles);
    EXPECT_LE(after.regions, before.regions + kRegions);
}

TEST(Loading, APluginIsGoneWhenItsHostHasLetGoOfIt) {
    EXPECT_FALSE(SharedLibrary::isLoaded(CIMHTTP_LIBRARY));
    {
        const LoadedPlugin plugin;
        EXPECT_TRUE(plugin.allocate(kPluginName));
        EXPECT_TRUE(SharedLibrary::isLoaded(CIMHTTP_LIBRARY));
    }
    EXPECT_FALSE(SharedLibrary::isLoaded(CIMHTTP_LIBRARY));
}

TEST(Loading, APluginIsGoneAlsoAfterItWasConnected) {
    const ServerProcess server;
    EXPECT_EQ(loadAndRead("OMC_NumericSensor"), 13);
    EXPECT_FALSE(SharedLibrary::isLoaded(CIMHTTP_LIBRARY));
}

TEST(Loading, AHundredTimesLeavesNothing) {
    expectNothingLeft(1, loadAndRegister);
}

TEST(Loading, AHundredTimesWithAConnectionLeavesNothing) {
    const ServerProcess server;
    // A class without superclasses takes the fewest requests.
    expectNothingLeft(2, [] { EXPECT_EQ(loadAndRead("CIM_ManagedElement"), 1); });
}

TEST(Loading, RefusalsOfALoadedPluginAreCaughtAsTheHostsException) {
    const LoadedPlugin plugin;
    EXPECT_EQ(StatusOf([&] { plugin.allocate({}); }), static_cast<EVSKStatusCode>(32));
}

}  // namespace
}  // namespace NQELVSK20
