#include "vskcore/THostSetup.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>

#include "inmem/TClassLayout.h"
#include "qelc/VQMInfo.h"
#include "splib/SPLibrary.h"
#include "tests/support/RecordingLogger.h"
#include "tests/support/schema/TInmemUnion.h"
#include "vskcore/TCIMReference.h"
#include "vskcore/TCIMValue.h"
#include "vskcore/TMinimalNamespace.h"
#include "vskcore/TNamespaceProviderManager.h"
#include "vskcore/TRootObject.h"

namespace NQELVSK20 {
namespace {

TEST(TRootObject, HasALoggerThatDiscardsEverythingAtFirst) {
    ASSERT_NE(TRootObject::GetCoreLogger(), nullptr);
    TRootObject::GetCoreLogger()->Log(0, "discarded");
}

/// What plug-ins see of the settings, in one place.
class HostSetupTest : public ::testing::Test {
protected:
    ~HostSetupTest() override { RestoreAll(); }

    void SetAll() {
        THostSetup::SetCoreLogger(&logger_);
        THostSetup::SetNodeCount(3);
        THostSetup::SetBMCMapping([](int index) { return 10 - index; });
        THostSetup::SetNamespaceProviderManager(manager_);
        THostSetup::SetReferencesOwnNamespace(true);
        THostSetup::SetPrintedForm(
            [](const std::string& text, unsigned char base) { return text + " in " + std::to_string(base); });
        THostSetup::SetRemembersLayouts(false);
    }

    static void RestoreAll() {
        THostSetup::SetCoreLogger(nullptr);
        THostSetup::SetNodeCount(1);
        THostSetup::SetBMCMapping({});
        THostSetup::RestoreNamespaceProviderManager();
        THostSetup::SetReferencesOwnNamespace(false);
        THostSetup::SetPrintedForm({});
        THostSetup::SetRemembersLayouts(true);
    }

    static bool ReferencesOwnTheirNamespace() {
        const auto nameSpace = boost::make_shared<TMinimalNamespace>();
        const TCIMReference reference(nameSpace, {});
        return nameSpace.use_count() > 1;
    }

    static bool LayoutsAreRemembered() {
        const auto cimClass = boost::make_shared<TInmemUnion>()->AllocateClass("X_Fan", nullptr, {});
        return TClassLayout::Of(cimClass) == TClassLayout::Of(cimClass);
    }

    RecordingLogger logger_;
    const boost::shared_ptr<INamespaceProviderManager> manager_ =
        boost::make_shared<TNamespaceProviderManager>();
};

TEST_F(HostSetupTest, EverySettingReachesThePlugIns) {
    SetAll();
    EXPECT_EQ(TRootObject::GetCoreLogger(), &logger_);
    EXPECT_EQ(VQMInfo::GetInstance()->GetNodeCount(), 3U);
    EXPECT_EQ(SPLibrary::GetBMCMapping(2), 8);
    EXPECT_EQ(TRootObject::GetNamespaceProviderManager(), manager_);
    EXPECT_TRUE(ReferencesOwnTheirNamespace());
    EXPECT_FALSE(LayoutsAreRemembered());
    EXPECT_EQ(TCIMValue("text").ToString(10), "text in 10");
}

TEST_F(HostSetupTest, EverySettingHasAWayBack) {
    THostSetup::SetCoreLogger(nullptr);  // the fixture's logger sets itself
    ILogger* const logger = TRootObject::GetCoreLogger();
    const auto manager = TRootObject::GetNamespaceProviderManager();
    SetAll();
    RestoreAll();
    EXPECT_EQ(TRootObject::GetCoreLogger(), logger);
    EXPECT_EQ(VQMInfo::GetInstance()->GetNodeCount(), 1U);
    EXPECT_EQ(SPLibrary::GetBMCMapping(2), 2);
    EXPECT_EQ(TRootObject::GetNamespaceProviderManager(), manager);
    EXPECT_FALSE(ReferencesOwnTheirNamespace());
    EXPECT_TRUE(LayoutsAreRemembered());
    EXPECT_EQ(TCIMValue("text").ToString(10), "text");
}

TEST_F(HostSetupTest, SetsTheLoggerThatTheRootObjectHandsOut) {
    RecordingLogger recording;
    THostSetup::SetCoreLogger(&recording);
    TRootObject::GetCoreLogger()->Log(3, "kept");
    THostSetup::SetCoreLogger(nullptr);
    TRootObject::GetCoreLogger()->Log(3, "discarded");
    EXPECT_EQ(recording.Lines(), (std::vector<RecordingLogger::Line>{{3, "kept"}}));
}

TEST_F(HostSetupTest, TakesTheProviderManagerAway) {
    THostSetup::SetNamespaceProviderManager({});
    EXPECT_FALSE(TRootObject::GetNamespaceProviderManager());
}

TEST_F(HostSetupTest, BringsTheHostsOwnProviderManagerBackAfterSeveralChanges) {
    const auto own = TRootObject::GetNamespaceProviderManager();
    ASSERT_TRUE(own);
    THostSetup::SetNamespaceProviderManager(manager_);
    THostSetup::SetNamespaceProviderManager({});
    THostSetup::RestoreNamespaceProviderManager();
    EXPECT_EQ(TRootObject::GetNamespaceProviderManager(), own);
}

TEST(VQMInfo, CountsOneNodeUntilTheHostSaysOtherwise) {
    ASSERT_NE(VQMInfo::GetInstance(), nullptr);
    EXPECT_EQ(VQMInfo::GetInstance()->GetNodeCount(), 1U);
    THostSetup::SetNodeCount(3);
    EXPECT_EQ(VQMInfo::GetInstance()->GetNodeCount(), 3U);
    THostSetup::SetNodeCount(1);
}

TEST(VQMInfo, IsOneObject) {
    EXPECT_EQ(VQMInfo::GetInstance(), VQMInfo::GetInstance());
}

TEST(SPLibrary, MapsEachNodeToItselfUntilTheHostSaysOtherwise) {
    EXPECT_EQ(SPLibrary::GetBMCMapping(0), 0);
    EXPECT_EQ(SPLibrary::GetBMCMapping(5), 5);
    THostSetup::SetBMCMapping([](int index) { return 10 - index; });
    EXPECT_EQ(SPLibrary::GetBMCMapping(2), 8);
    THostSetup::SetBMCMapping({});
    EXPECT_EQ(SPLibrary::GetBMCMapping(2), 2);
}

}  // namespace
}  // namespace NQELVSK20
