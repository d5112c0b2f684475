// The example of README.md, compiled into a program of its own.

#include <gmock/gmock.h>

#include "tests/support/Process.h"
#include "tests/support/TestMachine.h"

namespace {

using NQELVSK20::TestMachine;
using ::testing::Contains;
using ::testing::Each;
using ::testing::Not;
using ::testing::StartsWith;

support::ProcessResult runExample(const std::string& host) {
    return support::runProcess({README_EXAMPLE, host});
}

}  // namespace

TEST(ReadmeExample, PrintsThePathsOfTheSystemsOfANode) {
    TestMachine machine(1);
    const support::ProcessResult result = runExample(machine.Host(0));
    EXPECT_EQ(result.status, 0) << result.err;
#ifdef _WIN32
    const std::string lineEnd = "\r\n";
#else
    const std::string lineEnd = "\n";
#endif
    EXPECT_EQ(result.out,
              "CIM_ComputerSystem.CreationClassName=\"OMC_UnitaryComputerSystem\",Name=\"node-0.machine."
              "example\"" +
                  lineEnd);
}

TEST(ReadmeExample, LogsNoError) {
    TestMachine machine(1);
    const std::vector<std::string> log = support::linesOf(runExample(machine.Host(0)).err);
    EXPECT_THAT(log, Contains(StartsWith("3 ")));
    EXPECT_THAT(log, Each(Not(StartsWith("0 "))));
}

TEST(ReadmeExample, SurvivesANodeThatIsNotThere) {
    const support::ProcessResult result = runExample(TestMachine::AddressOf(6));
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out, "");
}
