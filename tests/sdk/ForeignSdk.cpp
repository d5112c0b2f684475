// The plug-in as it is built with an SDK of another layout, in a host of that SDK.

#include <gmock/gmock.h>

#include "tests/support/Process.h"
#include "tests/support/TestMachine.h"

namespace {

using NQELVSK20::TestMachine;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

support::ProcessResult runForeignHost(const std::string& node, const std::string& className) {
    return support::runProcess({FOREIGN_HOST, node, className});
}

TEST(ForeignSdk, GivesItsHostTheInstancesOfAClass) {
    TestMachine machine(1);
    const auto result = runForeignHost(machine.Host(0), "cim_computersystem");
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_THAT(
        support::linesOf(result.out),
        ElementsAre("CIM_ComputerSystem",
                    "CIM_ComputerSystem.CreationClassName=\"OMC_UnitaryComputerSystem\",Name=\"node-0."
                    "machine.example\""));
}

TEST(ForeignSdk, GivesItsHostNoClassThatNoNodeHas) {
    TestMachine machine(1);
    const auto result = runForeignHost(machine.Host(0), "CIM_Nothing");
    EXPECT_EQ(result.status, 1) << result.err;
    EXPECT_THAT(support::linesOf(result.out), IsEmpty());
}

}  // namespace
