// The program against servers that are named with --node: credentials, transports, failing nodes.

#include <gmock/gmock.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "tests/support/TestMachine.h"
#include "tests/tools/support/Program.h"
#include "tests/tools/support/TemporaryFile.h"

namespace tool {

namespace {

using NQELVSK20::TestMachine;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

const std::string kPassword = "s3cret-w0rd";

TestMachine::Options guarded(std::size_t nodes) {
    TestMachine::Options options;
    options.nodes = nodes;
    options.credentials = cimom::Credentials{"admin", kPassword};
    return options;
}

std::vector<std::string> nodesOf(const TestMachine& machine, std::vector<std::string> rest) {
    std::vector<std::string> arguments;
    for (const std::string& host : machine.Hosts()) {
        arguments.insert(arguments.end(), {"--node", host});
    }
    arguments.insert(arguments.end(), rest.begin(), rest.end());
    return arguments;
}

std::size_t loginsSeen(TestMachine& machine, std::size_t node) {
    const auto requests = machine.Server().requests();
    return static_cast<std::size_t>(
        std::count_if(requests.begin(), requests.end(), [&](const cimom::SeenRequest& request) {
            return request.address == machine.Host(node) &&
                   request.head.find("\r\nAuthorization: ") != std::string::npos;
        }));
}

}  // namespace

TEST(Nodes, ASingleNodeIsAskedOverHttps) {
    TestMachine machine(1);
    const Outcome outcome = run(nodesOf(machine, {"names", "OMC_UnitaryComputerSystem"}));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_THAT(outcome.out, HasSubstr("node-0.machine.example"));
    ASSERT_FALSE(machine.Server().requests().empty());
    EXPECT_EQ(machine.Server().requests().back().port, 5989);
}

TEST(Nodes, InstancesOfEveryNodeCarryItsNumber) {
    TestMachine machine(2);
    const Outcome outcome =
        run(nodesOf(machine, {"--format", "json", "instances", "OMC_UnitaryComputerSystem"}));
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    const auto instances = nlohmann::json::parse(outcome.out);
    ASSERT_EQ(instances.size(), 2U);
    EXPECT_EQ(instances[0]["node"], 1);
    EXPECT_EQ(instances[1]["node"], 2);
}

TEST(Nodes, ASingleNodeOffersNoRemoteNodes) {
    TestMachine machine(1);
    const Outcome outcome = run(nodesOf(machine, {"class", "QEL_RemoteNode"}));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "cimhttp: the plug-in offers no class QEL_RemoteNode on a machine of one node\n");
}

TEST(Nodes, AnUnreachableNodeEndsInOneLine) {
    const std::string host = TestMachine::AddressOf(6);
    const Outcome outcome = run({"--node", host, "classes"});
    EXPECT_EQ(outcome.status, 4);
    EXPECT_EQ(outcome.out, "");
    ASSERT_EQ(linesOf(outcome.err).size(), 1U) << outcome.err;
    EXPECT_EQ(outcome.err,
              "cimhttp: " + host + ": cannot connect: ports 5989 and 5988: connection refused\n");
}

TEST(Nodes, AnUnresolvableNameEndsInOneLine) {
    const Outcome outcome = run({"--node", "no-such-host.invalid", "classes"});
    EXPECT_EQ(outcome.status, 4);
    ASSERT_EQ(linesOf(outcome.err).size(), 1U) << outcome.err;
    EXPECT_THAT(outcome.err, StartsWith("cimhttp: no-such-host.invalid: cannot connect: "));
    EXPECT_THAT(outcome.err, HasSubstr("its name"));
}

TEST(Nodes, TheOthersAnswerWhenOneIsUnreachable) {
    TestMachine machine(2);
    machine.Kill(1);
    const Outcome outcome =
        run(nodesOf(machine, {"--format", "json", "instances", "OMC_UnitaryComputerSystem"}));
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(nlohmann::json::parse(outcome.out).size(), 1U);
    ASSERT_EQ(linesOf(outcome.err).size(), 1U) << outcome.err;
    EXPECT_THAT(outcome.err, StartsWith("cimhttp: node 2 (" + machine.Host(1) + "): cannot connect: "));
}

TEST(Nodes, ACimErrorOfOneNodeIsToldWithTheNode) {
    TestMachine machine(3);
    cimom::Fault fault;
    fault.kind = cimom::Fault::Kind::CimError;
    fault.address = machine.Host(2);
    fault.operation = "EnumerateInstances";
    fault.code = 1;
    fault.text = "the sensor bus is down";
    machine.Server().inject(fault);
    const Outcome outcome =
        run(nodesOf(machine, {"--format", "json", "instances", "OMC_UnitaryComputerSystem"}));
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(nlohmann::json::parse(outcome.out).size(), 2U);
    EXPECT_EQ(outcome.err,
              "cimhttp: node 3 (" + machine.Host(2) +
                  ":5989): instances of OMC_UnitaryComputerSystem: CIM error: the sensor bus is down\n");
}

TEST(Nodes, HostileTextOfAServerReachesNoTerminal) {
    TestMachine machine(1);
    cimom::Fault fault;
    fault.kind = cimom::Fault::Kind::CimError;
    fault.operation = "EnumerateClassNames";
    fault.code = 1;
    fault.text = "\u009b31m\u202e";
    machine.Server().inject(fault);
    const Outcome outcome = run(nodesOf(machine, {"classes"}));
    EXPECT_EQ(outcome.status, 4);
    EXPECT_THAT(outcome.err, HasSubstr("\\x9b31m\\u202e"));
}

TEST(Transport, HttpIsNotedWhenHttpsFails) {
    TestMachine::Options options;
    options.https = false;
    TestMachine machine(options);
    const Outcome outcome = run(nodesOf(machine, {"classes"}));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, HasSubstr("CIM_ManagedElement\n"));
    ASSERT_EQ(linesOf(outcome.err).size(), 1U) << outcome.err;
    EXPECT_THAT(outcome.err, StartsWith("cimhttp: " + machine.Host(0) + ":5988: connected over HTTP"));
}

TEST(Transport, OneProtocolIsNotReplacedByTheOther) {
    TestMachine::Options options;
    options.https = false;
    TestMachine machine(options);
    const Outcome outcome = run(nodesOf(machine, {"--transport", "https", "classes"}));
    EXPECT_EQ(outcome.status, 4);
    EXPECT_THAT(outcome.err, HasSubstr("port 5989: connection refused"));
    EXPECT_EQ(machine.Server().connectionsAccepted(), 0U);
    EXPECT_EQ(run(nodesOf(machine, {"--transport", "http", "classes"})).status, 0);
}

TEST(Transport, TheEmbeddedMachineHasOneNodeForASingleProtocol) {
    const Outcome outcome =
        run({"--transport", "http", "--format", "json", "walk", "OMC_UnitaryComputerSystem"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(nlohmann::json::parse(outcome.out)["nodes"].size(), 1U);
    EXPECT_THAT(outcome.err, HasSubstr("the embedded machine has one"));
}

TEST(Passwords, ComeFromAFile) {
    TestMachine machine(guarded(2));
    const TemporaryFile file(kPassword + "\n");
    const Outcome outcome = run(nodesOf(
        machine, {"--user", "admin", "--password-file", file.path(), "names", "OMC_UnitaryComputerSystem"}));
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.err, "");
}

TEST(Passwords, ComeFromAVariable) {
    TestMachine machine(guarded(1));
    const Outcome outcome =
        Program({"--node", "admin@" + machine.Host(0), "classes"}).with("CIMHTTP_PASSWORD", kPassword).run();
    EXPECT_EQ(outcome.status, 0) << outcome.err;
}

TEST(Passwords, AreAskedForOnATerminalWithoutEcho) {
    TestMachine machine(guarded(1));
    const Outcome outcome = Program({"--node", "admin@" + machine.Host(0), "classes"})
                                .runOnTerminal("Password of admin at ", kPassword + "\n");
    EXPECT_EQ(outcome.status, 0) << outcome.out;
    EXPECT_THAT(outcome.out, HasSubstr("CIM_ManagedElement\r\n"));
    EXPECT_THAT(outcome.out, Not(HasSubstr(kPassword)));
}

TEST(Passwords, MayHaveAnyLetterOnATerminal) {
    TestMachine::Options options = guarded(1);
    options.credentials->password = "Schl\u00fcssel-\u20ac-\u043a\u043b\u044e\u0447";
    TestMachine machine(options);
    const Outcome outcome = Program({"--node", "admin@" + machine.Host(0), "classes"})
                                .runOnTerminal("Password of admin at ", options.credentials->password + "\n");
    EXPECT_EQ(outcome.status, 0) << outcome.out;
}

TEST(Passwords, CtrlCAtThePromptEndsTheProgram) {
    TestMachine machine(guarded(1));
    const Outcome outcome = Program({"--node", "admin@" + machine.Host(0), "classes"})
                                .runOnTerminal("Password of admin at ", "\x03");
    EXPECT_EQ(outcome.signal, 2);
}

TEST(Passwords, AWrongOneEndsInOneLineThatShowsItNot) {
    TestMachine machine(guarded(1));
    const TemporaryFile file("wr0ng-guess\n");
    const Outcome outcome =
        run(nodesOf(machine, {"--user", "admin", "--password-file", file.path(), "classes"}));
    EXPECT_EQ(outcome.status, 4);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err,
              "cimhttp: " + machine.Host(0) + ":5989: refuses user 'admin' with the password given\n");
    EXPECT_EQ(loginsSeen(machine, 0), 1U);
}

TEST(Passwords, AMissingUserIsAskedForInOneLine) {
    TestMachine machine(guarded(1));
    const Outcome outcome = run(nodesOf(machine, {"--transport", "http", "classes"}));
    EXPECT_EQ(outcome.status, 4);
    EXPECT_EQ(outcome.err, "cimhttp: " + machine.Host(0) +
                               ":5988: asks for a user and a password: --user NAME or --node USER@HOST\n");
}

TEST(Passwords, ANodeThatRefusesThemIsNamedAndCostsItsOwnRowsOnly) {
    TestMachine machine(guarded(3));
    const TemporaryFile file(kPassword + "\nwr0ng-guess\n" + kPassword + "\n");
    const Outcome outcome = run(nodesOf(machine, {"--format", "json", "--user", "admin", "--password-file",
                                                  file.path(), "instances", "OMC_UnitaryComputerSystem"}));
    EXPECT_EQ(outcome.status, 3);
    const auto instances = nlohmann::json::parse(outcome.out);
    ASSERT_EQ(instances.size(), 2U);
    EXPECT_EQ(instances[0]["node"], 1);
    EXPECT_EQ(instances[1]["node"], 3);
    EXPECT_EQ(outcome.err, "cimhttp: node 2 (" + machine.Host(1) +
                               ":5989): refuses user 'admin' with the password given\n");
    EXPECT_EQ(loginsSeen(machine, 1), 1U);
}

TEST(Passwords, TheOnlyNodeThatRefusesThemEndsTheCommand) {
    TestMachine machine(guarded(1));
    const TemporaryFile file("wr0ng-guess\n");
    for (const char* command : {"classes", "instances", "names", "tree", "class"}) {
        machine.ClearRequests();
        const Outcome outcome =
            run(nodesOf(machine, {"--format", "json", "--user", "admin", "--password-file", file.path(),
                                  command, "OMC_UnitaryComputerSystem"}));
        EXPECT_EQ(outcome.status, 4) << command;
        EXPECT_EQ(outcome.out, "") << command;
        EXPECT_EQ(outcome.err,
                  "cimhttp: " + machine.Host(0) + ":5989: refuses user 'admin' with the password given\n");
        EXPECT_EQ(loginsSeen(machine, 0), 1U) << command;
    }
}

TEST(Passwords, AreNeverShown) {
    TestMachine machine(guarded(2));
    for (const std::string& password : {kPassword, std::string("wr0ng-guess")}) {
        const TemporaryFile file(password + "\n");
        for (const char* command : {"classes", "tree"}) {
            const Outcome outcome =
                run(nodesOf(machine, {"-v", "--user", "admin", "--password-file", file.path(), command}));
            EXPECT_THAT(outcome.out + outcome.err, Not(HasSubstr(password)));
        }
    }
}

TEST(Interrupt, ANodeThatDoesNotAnswerCanBeLeft) {
    TestMachine machine(1);
    cimom::Fault fault;
    fault.kind = cimom::Fault::Kind::NoAnswer;
    fault.operation = "EnumerateClassNames";
    machine.Server().inject(fault);
    const Outcome outcome = Program(nodesOf(machine, {"-v", "classes"}))
                                .runOnTerminal("Entering TCimHTTPNamespace::EnumerateClassNames", "\x03");
    EXPECT_EQ(outcome.signal, 2);
}

TEST(Definitions, ThatDifferBetweenNodesAreToldWithTheirNodes) {
    TestMachine machine(2);
    cimom::Fault other;
    other.kind = cimom::Fault::Kind::RawText;
    other.address = machine.Host(1);
    other.operation = "GetClass";
    other.className = "CIM_NumericSensor";
    other.text = "NAME=\"CurrentReading\"";
    other.instead = "NAME=\"CurrentValue\"";
    machine.Server().inject(other);
    const std::string told =
        "cimhttp: the nodes define CIM_NumericSensor differently: node 2: has no property CurrentReading; "
        "node 2: has "
        "property CurrentValue besides\n";
    EXPECT_EQ(run(nodesOf(machine, {"class", "OMC_NumericSensor"})).err, told) << "a superclass";
    EXPECT_EQ(run(nodesOf(machine, {"tree", "CIM_Sensor"})).err, told);
    EXPECT_EQ(run(nodesOf(machine, {"names", "OMC_NumericSensor"})).err, "");
}

TEST(Terminal, NamesTheRequestThatTakesLongAndWipesItBeforeTheAnswer) {
    TestMachine machine(2);
    cimom::Fault slow;
    slow.address = machine.Host(1);
    slow.operation = "EnumerateInstances";
    slow.className = "OMC_UnitaryComputerSystem";
    slow.delay = std::chrono::milliseconds(2200);
    machine.Server().inject(slow);
    const Outcome outcome =
        Program(nodesOf(machine, {"instances", "OMC_UnitaryComputerSystem"})).runOnTerminal();
    const std::string line =
        "\rnode 2 (" + machine.Host(1) + ":5989): instances of OMC_UnitaryComputerSystem";
    const std::size_t first = outcome.out.find(line + "\033[K");
    ASSERT_NE(first, std::string::npos) << outcome.out;
    const std::size_t second = outcome.out.find(line + ", 1 s\033[K", first);
    ASSERT_NE(second, std::string::npos) << outcome.out;
    const std::size_t wiped = outcome.out.find("\r\033[K", second);
    EXPECT_LT(wiped, outcome.out.find("OMC_UnitaryComputerSystem.", second));
}

}  // namespace tool
