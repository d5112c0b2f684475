// The plug-in as it is built with an SDK of another layout, in a host of that SDK.

#include <gmock/gmock.h>

#include <string>

#include "tests/support/Process.h"
#include "tests/support/TestMachine.h"

namespace {

using NQELVSK20::TestMachine;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// What stands before the line feed.
#ifdef _WIN32
const std::string kLineEnd = "\r";
#else
const std::string kLineEnd;
#endif

support::ProcessResult runForeignHost(const std::string& node, const std::string& className) {
    return support::runProcess({FOREIGN_HOST, node, className});
}

TEST(ForeignSdk, GivesItsHostTheInstancesOfAClass) {
    TestMachine machine(1);
    const auto result = runForeignHost(machine.Host(0), "cim_computersystem");
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_THAT(
        support::linesOf(result.out),
        ElementsAre("CIM_ComputerSystem" + kLineEnd,
                    "CIM_ComputerSystem.CreationClassName=\"OMC_UnitaryComputerSystem\",Name=\"node-0."
                    "machine.example\"" +
                        kLineEnd));
}

TEST(ForeignSdk, GivesItsHostNoClassThatNoNodeHas) {
    TestMachine machine(1);
    const auto result = runForeignHost(machine.Host(0), "CIM_Nothing");
    EXPECT_EQ(result.status, 3) << result.err;
    EXPECT_THAT(support::linesOf(result.out), IsEmpty());
}

}  // namespace
