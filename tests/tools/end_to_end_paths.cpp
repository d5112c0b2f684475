// Paths that the program printed are taken back by it; names and methods of other nodes than the first.

#include <gmock/gmock.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "tests/support/Declarations.h"
#include "tests/support/TestMachine.h"
#include "tests/tools/support/Program.h"

namespace tool {

namespace {

using namespace NQELVSK20;
using nlohmann::json;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr const char* kSystems = "OMC_UnitaryComputerSystem";
constexpr const char* kSystemNamed =
    "OMC_UnitaryComputerSystem.CreationClassName=\"OMC_UnitaryComputerSystem\",Name=";

Outcome askAll(const TestMachine& machine, std::vector<std::string> rest) {
    for (const std::string& host : machine.Hosts()) {
        rest.insert(rest.end(), {"--node", host});
    }
    return run(rest);
}

/// Declares a class with these members, and an instance with these properties, on the first node.
void add(TestMachine& machine, const std::string& members, const std::string& properties) {
    machine.Repository(0).addDeclarations(
        "root/cimv2", Declarations({ClassXml("X_Thing", "", members), InstanceXml("X_Thing", properties)}),
        "test");
}

void expectTakenBack(const Outcome& printed, const TestMachine& machine) {
    ASSERT_EQ(printed.status, 0) << printed.err;
    const std::string path = linesOf(printed.out).front();
    const Outcome taken = askAll(machine, {"get", path});
    ASSERT_EQ(taken.status, 0) << path << ": " << taken.err;
    EXPECT_EQ(linesOf(taken.out).front(), path);
}

}  // namespace

TEST(NamesOfAnotherNode, AreThatNodesOwn) {
    TestMachine machine(2);
    const Outcome outcome = askAll(machine, {"names", kSystems, "--on", "2"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out, kSystemNamed + std::string("\"node-1.machine.example\"\n"));
    EXPECT_THAT(machine.Requests(), Not(Contains(HasSubstr("0 "))));
}

TEST(NamesOfAnotherNode, DoNotNeedTheFirst) {
    TestMachine machine(2);
    machine.Kill(0);
    EXPECT_EQ(askAll(machine, {"names", kSystems, "--on", "2"}).status, 0);
    const Outcome first = askAll(machine, {"names", kSystems, "--on", "1"});
    EXPECT_EQ(first.status, 4);
    EXPECT_THAT(first.err, HasSubstr("node 1 (" + machine.Host(0) + "): cannot connect"));
}

TEST(NamesOfAnotherNode, NeedANodeOfTheMachine) {
    const Outcome outcome = run({"names", kSystems, "--on", "4"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "cimhttp: --on 4: a node's number from 1 to 3 is expected\n");
    EXPECT_EQ(run({"names", kSystems, "--on", "3"}).out,
              kSystemNamed + std::string("\"node-2.machine.example\"\n"));
    EXPECT_EQ(run({"names", kSystems, "--on", "0"}).status, 2);
}

TEST(MethodOfAnotherNodesInstance, IsRefusedBeforeAnythingIsSent) {
    TestMachine machine(2);
    const std::string path = kSystemNamed + std::string("\"node-1.machine.example\"");
    const Outcome outcome = askAll(machine, {"invoke", path, "RequestStateChange", "RequestedState=3"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "cimhttp: methods go to the first node only: this is an instance of node 2 (" +
                               machine.Host(1) + ":5989)\n");
    EXPECT_THAT(machine.Requests(), Not(Contains(HasSubstr("RequestStateChange"))));
    const std::string own = kSystemNamed + std::string("\"node-0.machine.example\"");
    EXPECT_EQ(askAll(machine, {"invoke", own, "RequestStateChange", "RequestedState=3"}).status, 0);
}

TEST(PrintedPath, OfAnInstanceWithoutKeysIsTakenBack) {
    TestMachine machine(1);
    add(machine, "<PROPERTY NAME=\"Text\" TYPE=\"string\"/>", PropertyXml("Text", "string", "alone"));
    expectTakenBack(askAll(machine, {"names", "X_Thing"}), machine);
    expectTakenBack(askAll(machine, {"instances", "X_Thing"}), machine);
}

TEST(PrintedPath, OfAnInstanceWhoseKeyIsNullIsTakenBack) {
    TestMachine machine(1);
    add(machine, KeyXml("ID", "string") + KeyXml("Part", "string"),
        PropertyXml("ID", "string", "a") + PropertyXml("Part", "string", "b"));
    cimom::Fault forgetful;
    forgetful.kind = cimom::Fault::Kind::RawText;
    forgetful.operation = "EnumerateInstances";
    forgetful.text = "NAME=\"Part\"";
    forgetful.instead = "NAME=\"Other\"";
    machine.Server().inject(forgetful);
    const Outcome printed = askAll(machine, {"instances", "X_Thing"});
    EXPECT_EQ(linesOf(printed.out).front(), "X_Thing.ID=\"a\"");
    expectTakenBack(printed, machine);
    EXPECT_EQ(askAll(machine, {"get", "X_Thing.ID=other"}).err, "cimhttp: the path lacks the key Part\n");
}

TEST(PrintedPath, WithALineBreakInAKeyIsTakenBack) {
    TestMachine machine(1);
    add(machine, KeyXml("ID", "string"), PropertyXml("ID", "string", "two\nlines \\n \"quoted\""));
    expectTakenBack(askAll(machine, {"names", "X_Thing"}), machine);
    expectTakenBack(askAll(machine, {"instances", "X_Thing"}), machine);
}

TEST(PrintedPath, WithAWrongValueIsWrongUsage) {
    TestMachine machine(1);
    add(machine, KeyXml("Number", "uint8"), PropertyXml("Number", "uint8", "7"));
    expectTakenBack(askAll(machine, {"names", "X_Thing"}), machine);
    for (const char* command : {"get", "invoke"}) {
        const Outcome outcome = askAll(machine, {command, "X_Thing.Number=seven", "Reset"});
        EXPECT_EQ(outcome.status, 2) << command;
    }
    EXPECT_EQ(askAll(machine, {"get", "X_Thing.Number=seven"}).err,
              "cimhttp: the key Number takes uint8, not 'seven': a whole number from 0 to 255\n");
}

}  // namespace tool
