#include "vskcore/TNamespaceProviderManager.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>

#include "tests/support/RecordingLogger.h"
#include "tests/support/StatusOf.h"
#include "vskcore/ICIMNamespace.h"
#include "vskcore/INamespaceProvider.h"
#include "vskcore/TRootObject.h"

namespace NQELVSK20 {
namespace {

class NamedProvider : public INamespaceProvider {
public:
    explicit NamedProvider(const std::string& name) : name_(name) {}
    const std::string& GetName(TContext /*context*/) const override { return name_; }
    boost::shared_ptr<ICIMNamespace> AllocateNamespace(TContext /*context*/, bool /*replaceDuplicates*/,
                                                       std::string /*name*/) const override {
        return {};
    }
    EType GetType(TContext /*context*/) const override { return eInmemoryProvider; }
    bool IsIndicationsSupported(TContext /*context*/) const override { return false; }

private:
    std::string name_;
};

TEST(TNamespaceProviderManager, FindsAProviderByItsName) {
    TNamespaceProviderManager manager;
    const auto one = boost::make_shared<NamedProvider>("one");
    const auto two = boost::make_shared<NamedProvider>("two");
    manager.RegisterProvider(one);
    manager.RegisterProvider(two);
    EXPECT_EQ(manager.FindProvider("one"), one);
    EXPECT_EQ(manager.FindProvider("two"), two);
}

TEST(TNamespaceProviderManager, FindsNothingUnderAnotherName) {
    TNamespaceProviderManager manager;
    EXPECT_FALSE(manager.FindProvider("one"));
    manager.RegisterProvider(boost::make_shared<NamedProvider>("one"));
    EXPECT_FALSE(manager.FindProvider("One"));
    EXPECT_FALSE(manager.FindProvider(""));
}

TEST(TNamespaceProviderManager, PutsASecondProviderOfANameInTheFirstOnesPlace) {
    TNamespaceProviderManager manager;
    auto first = boost::make_shared<NamedProvider>("one");
    const boost::weak_ptr<NamedProvider> released = first;
    manager.RegisterProvider(first);
    first.reset();
    const auto second = boost::make_shared<NamedProvider>("one");
    manager.RegisterProvider(second);
    EXPECT_EQ(manager.FindProvider("one"), second);
    EXPECT_TRUE(released.expired());
}

TEST(TNamespaceProviderManager, RefusesAnEmptyPointerWithALogLineAndStatus15) {
    RecordingLogger log;
    TNamespaceProviderManager manager;
    EXPECT_EQ(StatusOf([&manager] { manager.RegisterProvider(nullptr); }), eVSKNotFound);
    ASSERT_EQ(log.Lines().size(), 1U);
    EXPECT_EQ(log.Lines()[0].first, 0);
}

TEST(TRootObject, HandsOutOneProviderManager) {
    ASSERT_TRUE(TRootObject::GetNamespaceProviderManager());
    EXPECT_EQ(TRootObject::GetNamespaceProviderManager(), TRootObject::GetNamespaceProviderManager());
}

}  // namespace
}  // namespace NQELVSK20
