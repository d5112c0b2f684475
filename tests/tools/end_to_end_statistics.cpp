// What requests a command took.

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/support/TestMachine.h"
#include "tests/tools/support/Program.h"

namespace tool {

namespace {

using NQELVSK20::TestMachine;
using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::MatchesRegex;
using ::testing::Not;

std::string lineOfTable(const std::string& where, const std::string& numbers) {
    return where + " +" + numbers + " +[0-9]+.[0-9][0-9][0-9]";
}

}  // namespace

TEST(Statistics, TellRequestsOfEachNodeBehindTheAnswer) {
    TestMachine machine;
    const Outcome outcome = run({"--statistics", "--node", machine.Host(0), "classes"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    const auto lines = linesOf(outcome.err);
    ASSERT_FALSE(lines.empty());
    EXPECT_THAT(lines.front(), MatchesRegex("Node +Operation +Requests +Failed +Seconds"));
    EXPECT_THAT(lines, Contains(MatchesRegex(lineOfTable(machine.Host(0) + ":5989 +HTTPSConnect", "1 +0"))));
    EXPECT_THAT(lines,
                Contains(MatchesRegex(lineOfTable(machine.Host(0) + ":5989 +EnumerateClassNames", "1 +0"))));
    // The plug-in looks for a hypervisor, whose class the server does not know.
    EXPECT_THAT(lines,
                Contains(MatchesRegex(lineOfTable(machine.Host(0) + ":5989 +EnumerateInstances", "1 +1"))));
    EXPECT_THAT(lines.back(), MatchesRegex(lineOfTable("All", "3 +1")));
    EXPECT_THAT(outcome.out, Not(HasSubstr("HTTPSConnect")));
}

TEST(Statistics, CountFailuresAndStandBehindTheirMessages) {
    TestMachine machine;
    cimom::Fault fault;
    fault.kind = cimom::Fault::Kind::CimError;
    fault.code = 1;
    fault.operation = "EnumerateClassNames";
    machine.Server().inject(fault);
    const Outcome outcome = run({"--node", machine.Host(0), "classes", "--statistics"});
    EXPECT_EQ(outcome.status, 4);
    const auto lines = linesOf(outcome.err);
    ASSERT_FALSE(lines.empty());
    EXPECT_THAT(lines.front(), HasSubstr("CIM error"));
    EXPECT_THAT(lines, Contains(MatchesRegex(lineOfTable(".*EnumerateClassNames", "1 +1"))));
    EXPECT_THAT(lines.back(), MatchesRegex(lineOfTable("All", "3 +2")));
}

TEST(Statistics, AreNotToldUnlessAskedFor) {
    TestMachine machine;
    EXPECT_THAT(run({"--node", machine.Host(0), "classes"}).err, IsEmpty());
}

TEST(Statistics, DoNotGoWithAMonitorsOneLine) {
    const Outcome outcome = run({"--statistics", "health", "--nagios"});
    EXPECT_EQ(outcome.status, 3) << "unknown, to a monitor";
    EXPECT_THAT(outcome.out + outcome.err, HasSubstr("--statistics does not go with it"));
}

}  // namespace tool
