// The same question again and again: on the embedded machine, and on servers that change.

#include <gmock/gmock.h>

#include <algorithm>
#include <regex>

#include "tests/support/TestMachine.h"
#include "tests/tools/support/Program.h"

namespace tool {

namespace {

using NQELVSK20::TestMachine;
using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ContainsRegex;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr const char* kFanInstance =
    "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><DECLARATION><DECLGROUP><VALUE.OBJECT><INSTANCE "
    "CLASSNAME=\"TST_Fan\"><PROPERTY NAME=\"ID\" TYPE=\"string\"><VALUE>a</VALUE></PROPERTY><PROPERTY "
    "NAME=\"Speed\" TYPE=\"sint32\"><VALUE>10</VALUE></PROPERTY></INSTANCE></VALUE.OBJECT></DECLGROUP>"
    "</DECLARATION></CIM>";

constexpr const char* kFanClass =
    "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><DECLARATION><DECLGROUP>"
    "<QUALIFIER.DECLARATION NAME=\"Key\" TYPE=\"boolean\" ISARRAY=\"false\"><SCOPE PROPERTY=\"true\"/>"
    "<VALUE>FALSE</VALUE></QUALIFIER.DECLARATION>"
    "<VALUE.OBJECT><CLASS NAME=\"TST_Fan\"><PROPERTY NAME=\"ID\" TYPE=\"string\"><QUALIFIER NAME=\"Key\" "
    "TYPE=\"boolean\"><VALUE>TRUE</VALUE></QUALIFIER></PROPERTY><PROPERTY NAME=\"Speed\" TYPE=\"sint32\"/>"
    "</CLASS></VALUE.OBJECT></DECLGROUP></DECLARATION></CIM>";

// A node with one fan, "a" at a speed of 10. What changes is changed on the way, in the answers.
class FanNode {
public:
    FanNode() : machine_(1) {
        machine_.Repository(0).addDeclarations("root/test", kFanClass, "class.xml");
        machine_.Repository(0).addDeclarations("root/test", kFanInstance, "fan.xml");
    }

    // From now on the servers say the one instead of the other.
    void change(const std::string& text, const std::string& instead) {
        cimom::Fault fault;
        fault.kind = cimom::Fault::Kind::RawText;
        fault.text = '>' + text + '<';
        fault.instead = '>' + instead + '<';
        machine_.Server().inject(fault);
    }

    support::Process watch(std::vector<std::string> rest) const {
        rest.insert(rest.begin(),
                    {CIMHTTP_PROGRAM, "--node", machine_.Host(0), "--namespace", "root/test", "watch"});
        return support::Process(rest);
    }

    TestMachine& machine() { return machine_; }

    std::size_t timesAsked(const std::string& request) const {
        const auto requests = machine_.Requests();
        return static_cast<std::size_t>(std::count(requests.begin(), requests.end(), request));
    }

private:
    TestMachine machine_;
};

cimom::Fault outOfOrder() {
    cimom::Fault fault;
    fault.operation = "EnumerateInstances";
    fault.kind = cimom::Fault::Kind::CimError;
    fault.code = 1;
    fault.text = "out of order";
    return fault;
}

// Reads up to the line that has a text.
std::string lineWith(support::Process& process, const std::string& text) {
    for (int i = 0; i < 1000; ++i) {
        std::string line = process.readLine();
        if (line.find(text) != std::string::npos) {
            return line;
        }
    }
    return "no line with " + text;
}

}  // namespace

TEST(WatchCommand, AsksInRoundsAndShowsTheFirstAsAWhole) {
    const Outcome outcome = run({"watch", "0", "--rounds", "2", "instances", "OMC_NumericSensor", "--columns",
                                 "ElementName,Reading"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    const auto lines = linesOf(outcome.out);
    ASSERT_EQ(lines.size(), 32U);
    EXPECT_TRUE(std::regex_match(lines[0], std::regex("[0-9-]+ [0-9:]+  round 1: 29 rows"))) << lines[0];
    EXPECT_THAT(lines, Contains("  1     DIMM 4 Temp     91 °C > 85 upper non-critical"));
    EXPECT_THAT(lines[31], EndsWith("  round 2: 29 rows"));
}

TEST(WatchCommand, ShowsWhatChangedAndAsksForClassesOnce) {
    FanNode node;
    auto process = node.watch({"0.05", "instances", "TST_Fan", "--columns", "ID,Speed"});
    EXPECT_THAT(lineWith(process, "round 1: "), EndsWith("round 1: 1 row"));
    EXPECT_EQ(process.readLine(), "  Node  ID  Speed");
    EXPECT_EQ(process.readLine(), "  1     a   10");
    const std::size_t classes = node.timesAsked("0 GetClass TST_Fan");
    node.change("10", "12");
    EXPECT_THAT(lineWith(process, "changed"), EndsWith(": 1 row, 1 changed"));
    EXPECT_THAT(process.readLine(), AllOf(StartsWith("* 1     a   10 → 12  ▁"), EndsWith("█")));
    EXPECT_GE(node.timesAsked("0 EnumerateInstances TST_Fan"), 2U);
    EXPECT_EQ(node.timesAsked("0 GetClass TST_Fan"), classes);
}

TEST(WatchCommand, ShowsWhatCameAndWent) {
    FanNode node;
    auto process = node.watch({"0.05", "instances", "TST_Fan", "--columns", "ID,Speed"});
    lineWith(process, "round 1: ");
    node.change("a", "b");
    EXPECT_THAT(lineWith(process, "new"), EndsWith(": 1 row, 1 new, 1 gone"));
    EXPECT_EQ(process.readLine(), "+ 1     b   10");
    EXPECT_EQ(process.readLine(), "- 1     a   10");
}

TEST(WatchCommand, NamesWhatChangedOfOneInstance) {
    FanNode node;
    auto process = node.watch({"0.05", "get", "TST_Fan.ID=a"});
    lineWith(process, "round 1: ");
    node.change("10", "9");
    EXPECT_THAT(lineWith(process, " → "), ContainsRegex("Speed 10 → 9 █+▁$"));
}

TEST(WatchCommand, WatchesTheLinesOfOtherAnswers) {
    FanNode node;
    auto process = node.watch({"0.05", "names", "TST_Fan"});
    lineWith(process, "round 1: ");
    node.change("a", "b");
    EXPECT_THAT(lineWith(process, "new"), EndsWith(": 1 row, 1 new, 1 gone"));
    EXPECT_EQ(process.readLine(), "+ TST_Fan.ID=\"b\"");
}

TEST(WatchCommand, WatchesTheHealthOfElements) {
    TestMachine machine(3);
    std::vector<std::string> command{CIMHTTP_PROGRAM};
    for (const std::string& host : machine.Hosts()) {
        command.insert(command.end(), {"--node", host});
    }
    command.insert(command.end(), {"watch", "0.05", "health"});
    support::Process process(command);
    EXPECT_THAT(lineWith(process, "round 1: "), EndsWith("round 1: 5 rows"));
    EXPECT_EQ(process.readLine(), "  Node  Element         State             Now");
    cimom::Fault hotter;
    hotter.kind = cimom::Fault::Kind::RawText;
    hotter.text = "<VALUE>91</VALUE>";
    hotter.instead = "<VALUE>94</VALUE>";
    machine.Server().inject(hotter);
    EXPECT_THAT(
        lineWith(process, "* "),
        HasSubstr("* 1     DIMM 4 Temp     Degraded/Warning  91 °C > 85 upper non-critical → 94 °C > 85 "
                  "upper non-critical  ▁"));
}

TEST(WatchCommand, ARoundThatFailsIsShownAndTheNextOneTried) {
    FanNode node;
    auto process = node.watch({"0.05", "instances", "TST_Fan", "--columns", "ID,Speed"});
    lineWith(process, "round 1: ");
    node.machine().Server().inject(outOfOrder());
    EXPECT_THAT(lineWith(process, "failed: "), HasSubstr("out of order"));
    node.machine().Server().clearFaults();
    EXPECT_THAT(lineWith(process, " 1 row"), EndsWith(": 1 row"));
}

TEST(WatchCommand, SaysOfEveryRoundThatItFailed) {
    FanNode node;
    node.machine().Server().inject(outOfOrder());
    const Outcome outcome = node.watch({"0", "--rounds", "2", "instances", "TST_Fan"}).wait();
    EXPECT_EQ(outcome.status, 4) << "nobody answered";
    EXPECT_THAT(outcome.out, HasSubstr("round 1: failed: "));
    EXPECT_THAT(outcome.out, HasSubstr("round 2: failed: "));
    EXPECT_EQ(linesOf(outcome.err).size(), 2U) << outcome.err;
}

TEST(WatchCommand, EndsCleanlyWithCtrlC) {
    const Outcome outcome = Program({"watch", "60", "names", "OMC_UnitaryComputerSystem"})
                                .runOnTerminal("round 1: 1 row", "\x03");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.signal, 0);
}

TEST(WatchCommand, RedrawsATerminal) {
    const Outcome outcome = Program({"watch", "0", "--rounds", "2", "instances", "OMC_UnitaryComputerSystem",
                                     "--columns", "Name"})
                                .runOnTerminal();
    const std::size_t second = outcome.out.rfind("\033[H\033[2J");
    ASSERT_NE(second, std::string::npos);
    EXPECT_THAT(outcome.out.substr(second),
                HasSubstr("  round 2: 3 rows\r\n  Node  Name\r\n  1     node-0.machine.example\r\n"));
}

TEST(WatchCommand, RefusesWhatCannotBeWatched) {
    const auto refusal = [](std::vector<std::string> arguments) {
        const Outcome outcome = run(std::move(arguments));
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        return outcome.err;
    };
    EXPECT_THAT(refusal({"watch", "1", "invoke", "A.B=1", "Reset"}), HasSubstr("watch repeats questions"));
    EXPECT_THAT(refusal({"watch", "1", "health", "--format", "json"}), HasSubstr("watch shows text"));
    EXPECT_EQ(refusal({"watch", "1"}), "cimhttp: watch takes a command: watch SECONDS COMMAND...\n");
    EXPECT_NE(refusal({"watch", "soon", "classes"}), "");
    EXPECT_NE(refusal({"watch", "-1", "classes"}), "");
}

}  // namespace tool
