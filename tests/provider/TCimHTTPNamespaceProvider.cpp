#include "cimhttp/TCimHTTPNamespaceProvider.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <functional>
#include <stdexcept>
#include <vector>

#include "cimhttp/TCimHTTPNamespace.h"
#include "tests/support/PluginTest.h"
#include "tests/support/StatusOf.h"
#include "vskcore/INamespaceProviderManager.h"
#include "vskcore/TCIMValue.h"
#include "vskcore/THostSetup.h"
#include "vskcore/TRootObject.h"
#include "vskcore/TVSKException.h"

namespace NQELVSK20 {
namespace {

using Providers = std::vector<boost::shared_ptr<INamespaceProvider>>;

/// A manager that keeps what is registered, in order, unless a test makes it refuse.
class CollectingManager : public INamespaceProviderManager {
public:
    void RegisterProvider(boost::shared_ptr<INamespaceProvider> provider) override {
        if (refusal_) {
            refusal_();
        }
        registered_.push_back(provider);
    }
    boost::shared_ptr<INamespaceProvider> FindProvider(const std::string&) const override { return {}; }

    Providers registered_;
    std::function<void()> refusal_;
};

class ProviderTest : public PluginTest {
protected:
    const TContext named_{{"pluginNameQualDeclValue", TCIMValue("cimhttp.nsp")}};
};

TEST_F(ProviderTest, IsOneObjectWhoseUseCountRisesWithEachHolder) {
    const auto first = TCimHTTPNamespaceProvider::GetInstance();
    const long before = first.use_count();
    const auto second = TCimHTTPNamespaceProvider::GetInstance();
    EXPECT_EQ(first, second);
    EXPECT_EQ(first.use_count(), before + 1);
}

TEST_F(ProviderTest, InitializeMakesItFindableByName) {
    EXPECT_EQ(TCimHTTPNamespaceProvider::Initialize(), eVSKSuccess);
    EXPECT_EQ(TRootObject::GetNamespaceProviderManager()->FindProvider("cimhttp"),
              TCimHTTPNamespaceProvider::GetInstance());
}

TEST_F(ProviderTest, InitializeRegistersTheOneObjectWithTheManagerThatTheHostHandsOut) {
    const auto manager = boost::make_shared<CollectingManager>();
    THostSetup::SetNamespaceProviderManager(manager);
    EXPECT_EQ(TCimHTTPNamespaceProvider::Initialize(), eVSKSuccess);
    EXPECT_EQ(manager->registered_, (Providers{TCimHTTPNamespaceProvider::GetInstance()}));
}

TEST_F(ProviderTest, InitializePassesOnWhatTheManagerThrows) {
    const auto manager = boost::make_shared<CollectingManager>();
    THostSetup::SetNamespaceProviderManager(manager);
    manager->refusal_ = [] { throw TVSKException(eVSKAlreadyExists); };
    EXPECT_EQ(StatusOf([] { TCimHTTPNamespaceProvider::Initialize(); }), eVSKAlreadyExists);
    manager->refusal_ = [] { throw std::runtime_error("the registry is gone"); };
    EXPECT_THROW(TCimHTTPNamespaceProvider::Initialize(), std::runtime_error);
    EXPECT_EQ(log_.Lines(), std::vector<RecordingLogger::Line>());
}

TEST_F(ProviderTest, InitializeWithoutAProviderManagerIsABrokenPrecondition) {
    THostSetup::SetNamespaceProviderManager({});
#ifdef NDEBUG
    EXPECT_EQ(TCimHTTPNamespaceProvider::Initialize(), eVSKSuccess);
    EXPECT_EQ(log_.Lines(), (std::vector<RecordingLogger::Line>{
                                {0, "TCimHTTPNamespaceProvider::Initialize: assertion failed: px != 0"}}));
#else
    EXPECT_DEATH(TCimHTTPNamespaceProvider::Initialize(), "px != 0");
#endif
}

TEST_F(ProviderTest, NameIsTheSameStringWhateverTheContext) {
    const auto provider = TCimHTTPNamespaceProvider::GetInstance();
    const std::string& name = provider->GetName(TContext());
    EXPECT_EQ(name, "cimhttp");
    EXPECT_EQ(&provider->GetName(named_), &name);
}

TEST_F(ProviderTest, TypeIsTwoAndIndicationsAreNotSupported) {
    const auto provider = TCimHTTPNamespaceProvider::GetInstance();
    for (const TContext& context : {TContext(), named_}) {
        EXPECT_EQ(provider->GetType(context), 2);
        EXPECT_FALSE(provider->IsIndicationsSupported(context));
    }
}

TEST_F(ProviderTest, EachAllocationIsANamespaceOfItsOwn) {
    const auto provider = TCimHTTPNamespaceProvider::GetInstance();
    const auto first = provider->AllocateNamespace(named_, false, "root/cimv2");
    const auto second = provider->AllocateNamespace(named_, false, "root/cimv2");
    ASSERT_TRUE(first && second);
    EXPECT_NE(first, second);
    EXPECT_FALSE(boost::dynamic_pointer_cast<TCimHTTPNamespace>(first)->isConnected());
}

TEST_F(ProviderTest, AllocationKeepsFlagAndName) {
    const auto allocated =
        TCimHTTPNamespaceProvider::GetInstance()->AllocateNamespace(named_, true, "root/x");
    EXPECT_EQ(boost::dynamic_pointer_cast<TCimHTTPNamespace>(allocated)->getfCimHTTPNamespaceName(),
              "root/x");
}

TEST_F(ProviderTest, AllocationWithoutThePluginNameThrowsAndReturnsNothing) {
    boost::shared_ptr<ICIMNamespace> allocated;
    try {
        allocated =
            TCimHTTPNamespaceProvider::GetInstance()->AllocateNamespace(TContext(), false, "root/cimv2");
        FAIL() << "no exception";
    } catch (const TVSKException& error) {
        EXPECT_EQ(error.GetStatusCode(), eVSKMissingContextValue);
    }
    EXPECT_FALSE(allocated);
    EXPECT_EQ(log_.Lines(), (std::vector<RecordingLogger::Line>{
                                {0, "TCIMHTTPNamespace: 'pluginNameQualDeclValue' not passed via context"}}));
}

TEST_F(ProviderTest, CopiesCopyNothing) {
    const auto provider = TCimHTTPNamespaceProvider::GetInstance();
    TCimHTTPNamespaceProvider copy(*provider);
    copy = *provider;
    EXPECT_EQ(copy.GetName(TContext()), "cimhttp");
}

}  // namespace
}  // namespace NQELVSK20
