#include "vskcore/THostSetup.h"

#include <gtest/gtest.h>

#include "qelc/VQMInfo.h"
#include "splib/SPLibrary.h"
#include "tests/support/RecordingLogger.h"
#include "vskcore/TRootObject.h"

namespace NQELVSK20 {
namespace {

TEST(TRootObject, HasALoggerThatDiscardsEverythingAtFirst) {
    ASSERT_NE(TRootObject::GetCoreLogger(), nullptr);
    TRootObject::GetCoreLogger()->Log(0, "discarded");
}

TEST(THostSetup, SetsTheLoggerThatTheRootObjectHandsOut) {
    ILogger* const discarding = TRootObject::GetCoreLogger();
    RecordingLogger recording;
    THostSetup::SetCoreLogger(&recording);
    TRootObject::GetCoreLogger()->Log(3, "kept");
    THostSetup::SetCoreLogger(nullptr);
    TRootObject::GetCoreLogger()->Log(3, "discarded");
    EXPECT_EQ(recording.Lines(), (std::vector<RecordingLogger::Line>{{3, "kept"}}));
    EXPECT_EQ(TRootObject::GetCoreLogger(), discarding);
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
