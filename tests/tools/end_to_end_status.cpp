// What the program's exit status tells a script.

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "tests/support/TestMachine.h"
#include "tests/tools/support/Program.h"
#include "tools/program/ExitStatus.h"

namespace tool {

namespace {

using namespace NQELVSK20;
using ::testing::HasSubstr;

constexpr const char* kFirstSystem =
    "OMC_UnitaryComputerSystem.CreationClassName=OMC_UnitaryComputerSystem,Name=node-0.machine.example";

int statusOf(const TestMachine& machine, std::vector<std::string> arguments) {
    for (const std::string& host : machine.Hosts()) {
        arguments.insert(arguments.end(), {"--node", host});
    }
    return run(arguments).status;
}

cimom::Fault refusing(const std::string& operation, const std::string& address = "", int code = 1) {
    cimom::Fault fault;
    fault.kind = cimom::Fault::Kind::CimError;
    fault.operation = operation;
    fault.address = address;
    fault.code = code;
    fault.text = "not today";
    return fault;
}

}  // namespace

TEST(ExitStatus, IsZeroForAnAnswer) {
    EXPECT_EQ(run({"classes"}).status, kAnswered);
    EXPECT_EQ(run({"invoke", kFirstSystem, "RequestStateChange", "RequestedState=3"}).status, kAnswered);
}

TEST(ExitStatus, IsOneWhenThereIsNothing) {
    EXPECT_EQ(run({"instances", "OMC_SensorAlert"}).status, kNothingFound);
    EXPECT_EQ(run({"names", "OMC_SensorAlert"}).status, kNothingFound);
}

TEST(ExitStatus, IsOneForAClassOrNamespaceThatServersDoNotKnow) {
    EXPECT_EQ(run({"instances", "OMC_Nope"}).status, kNothingFound);
    EXPECT_EQ(run({"class", "OMC_Nope"}).status, kNothingFound);
    EXPECT_EQ(run({"--namespace", "root/nope", "names", "OMC_NumericSensor"}).status, kNothingFound);
}

TEST(ExitStatus, IsTwoForWrongUsage) {
    EXPECT_EQ(run({"--colour"}).status, kWrongUsage);
}

TEST(ExitStatus, IsThreeWhenANodeFailedAndOthersAnswered) {
    TestMachine machine(2);
    machine.Server().inject(refusing("EnumerateInstances", machine.Host(1)));
    EXPECT_EQ(statusOf(machine, {"instances", "OMC_UnitaryComputerSystem"}), kNodeFailed);
    EXPECT_EQ(statusOf(machine, {"instances", "OMC_SensorAlert"}), kNodeFailed) << "the other has none";
}

TEST(ExitStatus, IsThreeForAnUnreachableNodeBesideOneThatAnswers) {
    TestMachine machine(2);
    machine.Kill(1);
    EXPECT_EQ(statusOf(machine, {"names", "OMC_UnitaryComputerSystem"}), kNodeFailed);
}

TEST(ExitStatus, IsFourWhenEveryNodeFails) {
    TestMachine machine(2);
    machine.Server().inject(refusing("EnumerateInstances"));
    EXPECT_EQ(statusOf(machine, {"instances", "OMC_UnitaryComputerSystem"}), kNoAnswer);
    machine.Kill(0);
    machine.Kill(1);
    EXPECT_EQ(statusOf(machine, {"instances", "OMC_UnitaryComputerSystem"}), kNoAnswer);
}

TEST(ExitStatus, IsFourWhenTheOnlyNodeThatIsAskedFails) {
    TestMachine machine(2);
    machine.Server().inject(refusing("EnumerateInstanceNames"));
    EXPECT_EQ(statusOf(machine, {"names", "OMC_UnitaryComputerSystem"}), kNoAnswer);
    machine.Server().inject(refusing("GetClass"));
    EXPECT_EQ(statusOf(machine, {"class", "OMC_UnitaryComputerSystem"}), kNoAnswer);
}

TEST(ExitStatus, IsFiveForAMethodThatReturnsAnotherNumberThanZero) {
    const Outcome outcome = run({"invoke", kFirstSystem, "RequestStateChange", "RequestedState=77"});
    EXPECT_EQ(outcome.status, kMethodReturned);
    EXPECT_THAT(outcome.out, HasSubstr("return value  4097 (Invalid State Transition)\n"));
    EXPECT_EQ(outcome.err, "");
}

TEST(ExitStatus, IsFiveWithWhatTheNumberMeans) {
    const std::string system = linesOf(run({"names", "OMC_UnitaryComputerSystem"}).out).at(0);
    const Outcome text = run({"invoke", system, "RequestStateChange", "RequestedState=Defer"});
    EXPECT_EQ(text.status, kMethodReturned) << text.err;
    EXPECT_EQ(linesOf(text.out).at(0), "return value  4097 (Invalid State Transition)");
    const Outcome json =
        run({"--format", "json", "invoke", system, "RequestStateChange", "RequestedState=Defer"});
    EXPECT_EQ(nlohmann::json::parse(json.out)["returnMeaning"], "Invalid State Transition");
    const Outcome unknown = run({"invoke", system, "RequestStateChange", "RequestedState=Nope"});
    EXPECT_EQ(unknown.status, kWrongUsage);
    EXPECT_NE(unknown.err.find("Test, Defer, Quiesce"), std::string::npos) << "the parameter's own names";
}

TEST(ExitStatus, IsThreeForAMethodThatSucceedsBesideANodeThatFailed) {
    TestMachine machine(2);
    machine.Kill(1);
    EXPECT_EQ(statusOf(machine, {"invoke", kFirstSystem, "RequestStateChange", "RequestedState=3"}),
              kNodeFailed);
    EXPECT_EQ(statusOf(machine, {"invoke", kFirstSystem, "RequestStateChange", "RequestedState=77"}),
              kMethodReturned);
}

#ifndef _WIN32  // which has no such file
TEST(ExitStatus, IsSixWhenTheAnswerCannotBeWritten) {
    const Outcome outcome =
        support::runProcess({"sh", "-c", "exec \"$0\" classes >/dev/full", CIMHTTP_PROGRAM});
    EXPECT_EQ(outcome.status, kLocalFailure);
    EXPECT_EQ(outcome.err, "cimhttp: cannot write: no space left on device\n");
}
#endif

TEST(ExitStatus, IsListedByTheHelp) {
    const std::string help = run({"--help"}).out;
    for (const ExitStatus status :
         {kAnswered, kNothingFound, kWrongUsage, kNodeFailed, kNoAnswer, kMethodReturned, kLocalFailure}) {
        EXPECT_THAT(help, HasSubstr("  " + std::to_string(status) + "  "));
    }
}

}  // namespace tool
