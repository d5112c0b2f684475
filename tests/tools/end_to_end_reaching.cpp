// The program and nodes that cannot be reached, or only in a way that would show a password.

#include <gmock/gmock.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "tests/support/TestMachine.h"
#include "tests/tools/support/Program.h"
#include "tests/tools/support/SilentServer.h"
#include "tests/tools/support/TemporaryFile.h"

namespace tool {

namespace {

using nlohmann::json;
using NQELVSK20::TestMachine;
using ::testing::AnyOf;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using Texts = std::vector<std::string>;

constexpr const char* kSecret = "s3cret-w0rd";
constexpr const char* kSystemClass = "OMC_UnitaryComputerSystem";

Outcome ask(const Texts& hosts, Texts rest) {
    for (const std::string& host : hosts) {
        rest.insert(rest.end(), {"--node", host});
    }
    return Program(rest).with("CIMHTTP_PASSWORD", kSecret).run();
}

/// The numbers of the nodes whose systems are in an answer.
Texts nodesIn(const Outcome& outcome) {
    Texts nodes;
    for (const json& instance : json::parse(outcome.out)) {
        nodes.push_back(std::to_string(instance["node"].get<int>()));
    }
    return nodes;
}

Outcome askSystems(const Texts& hosts, Texts rest = {}) {
    rest.insert(rest.end(), {"--format", "json", "--connect-timeout", "1", "instances", kSystemClass});
    return ask(hosts, rest);
}

TestMachine::Options withLogin(std::size_t nodes) {
    TestMachine::Options options;
    options.nodes = nodes;
    options.credentials = cimom::Credentials{"admin", kSecret};
    return options;
}

TestMachine::Options withoutHttps(TestMachine::Options options) {
    options.https = false;
    return options;
}

std::size_t requestsAt(TestMachine& machine, std::size_t node) {
    const auto requests = machine.Server().requests();
    return static_cast<std::size_t>(std::count_if(
        requests.begin(), requests.end(),
        [&](const cimom::SeenRequest& request) { return request.address == machine.Host(node); }));
}

std::size_t loginsAt(TestMachine& machine, std::size_t node) {
    const auto requests = machine.Server().requests();
    return static_cast<std::size_t>(
        std::count_if(requests.begin(), requests.end(), [&](const cimom::SeenRequest& request) {
            return request.address == machine.Host(node) &&
                   request.head.find("\r\nAuthorization: ") != std::string::npos;
        }));
}

}  // namespace

TEST(HungNode, IsNamedAndLeftOutOfTheAnswer) {
    TestMachine machine(2);
    SilentServer silent(TestMachine::AddressOf(4), 5989);
    const Outcome outcome = askSystems({machine.Host(0), TestMachine::AddressOf(4), machine.Host(1)});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(nodesIn(outcome), ElementsAre("1", "3")) << "numbers are those of the command line";
    EXPECT_EQ(outcome.err, "cimhttp: node 2 (" + TestMachine::AddressOf(4) +
                               "): cannot connect: port 5989: accepts connections, and then no TLS answer in "
                               "1 s; port 5988: connection refused\n");
}

TEST(HungNode, IsSentNoPassword) {
    SilentServer silent(TestMachine::AddressOf(4), 5989);
    const Outcome outcome = askSystems({"admin@" + TestMachine::AddressOf(4)});
    EXPECT_EQ(outcome.status, 4);
    const std::string heard = silent.heard();
    EXPECT_FALSE(heard.empty()) << "it was greeted";
    EXPECT_EQ(heard.find("POST"), std::string::npos);
}

TEST(HungNode, OverHttpsIsAskedOverHttpWhenThereIsNoOther) {
    TestMachine machine(withoutHttps({}));
    SilentServer silent(machine.Host(0), 5989);
    const Outcome outcome = askSystems({machine.Host(0)});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(outcome.err, HasSubstr("connected over HTTP, without encryption"));
}

TEST(HungNode, OverHttpsIsLeftOutBesideOthers) {
    TestMachine machine(2);
    machine.Server().close(machine.Host(1), 5989);
    SilentServer silent(machine.Host(1), 5989);
    const Outcome outcome = askSystems(machine.Hosts());
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(nodesIn(outcome), ElementsAre("1"));
    EXPECT_THAT(outcome.err, EndsWith("; --transport http asks this node alone\n"));
}

TEST(FirstNode, IsReplacedByTheNextWhenItCannotBeReached) {
    TestMachine machine(3);
    machine.Kill(0);
    const Outcome outcome = askSystems(machine.Hosts());
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(nodesIn(outcome), ElementsAre("2", "3"));
    const Texts lines = linesOf(outcome.err);
    ASSERT_EQ(lines.size(), 2U) << outcome.err;
    EXPECT_EQ(lines[0], "cimhttp: node 1 (" + machine.Host(0) +
                            "): cannot connect: ports 5989 and 5988: connection refused");
    EXPECT_EQ(lines[1],
              "cimhttp: definitions and names come from node 2 (" + machine.Host(1) + ") instead of node 1");
}

TEST(FirstNode, IsNotReplacedWhereAMethodRuns) {
    TestMachine machine(2);
    machine.Kill(0);
    const Outcome outcome =
        ask(machine.Hosts(), {"invoke",
                              "OMC_UnitaryComputerSystem.CreationClassName=OMC_UnitaryComputerSystem,"
                              "Name=node-1.machine.example",
                              "RequestStateChange", "RequestedState=3"});
    EXPECT_EQ(outcome.status, 4);
    EXPECT_THAT(outcome.err, HasSubstr("methods go to the first node only: none was called"));
    EXPECT_TRUE(machine.Server().requests().empty());
}

TEST(FirstNode, ThatRefusesItsPasswordIsReplacedByTheNext) {
    TestMachine machine(withLogin(3));
    const TemporaryFile file("wr0ng-guess\n" + std::string(kSecret) + "\n" + kSecret + "\n");
    const Outcome outcome = askSystems(machine.Hosts(), {"--user", "admin", "--password-file", file.path()});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(nodesIn(outcome), ElementsAre("2", "3"));
    const Texts lines = linesOf(outcome.err);
    ASSERT_EQ(lines.size(), 2U) << outcome.err;
    EXPECT_THAT(lines[0], HasSubstr("node 1 (" + machine.Host(0) +
                                    ":5989): refuses user 'admin' with the password given"));
    EXPECT_THAT(lines[1], HasSubstr("definitions and names come from node 2"));
    EXPECT_EQ(loginsAt(machine, 0), 1U);
}

TEST(Refusals, OfEveryNodeAreTriedOnceEach) {
    TestMachine machine(withLogin(3));
    const TemporaryFile file("wr0ng-guess\n");
    const Outcome outcome = askSystems(machine.Hosts(), {"--user", "admin", "--password-file", file.path()});
    EXPECT_EQ(outcome.status, 4);
    EXPECT_THAT(outcome.out, AnyOf("", "[]\n"));
    for (std::size_t node = 0; node < 3; ++node) {
        EXPECT_EQ(loginsAt(machine, node), 1U) << node;
    }
}

TEST(MissingPassword, KeepsItsNodeFromBeingAskedAtAll) {
    TestMachine machine(2);
    const Outcome outcome = Program({"--node", machine.Host(0), "--node", "admin@" + machine.Host(1),
                                     "--format", "json", "instances", kSystemClass})
                                .run();
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(nodesIn(outcome), ElementsAre("1"));
    EXPECT_EQ(requestsAt(machine, 1), 0U);
    EXPECT_EQ(outcome.err, "cimhttp: node 2 (" + machine.Host(1) +
                               "): not asked: no password for user 'admin'; it comes from --password-file or "
                               "CIMHTTP_PASSWORD\n");
}

TEST(PasswordInClear, IsNotSentByAccident) {
    TestMachine machine(withoutHttps(withLogin(1)));
    const Outcome outcome = ask({"admin@" + machine.Host(0)}, {"classes"});
    EXPECT_EQ(outcome.status, 4);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "cimhttp: " + machine.Host(0) +
                               ": not asked: HTTPS: connection refused; HTTP would show the password, "
                               "--transport auto allows it\n");
    EXPECT_THAT(machine.AuthorizationsOf(0), IsEmpty());
    EXPECT_TRUE(machine.Server().requests().empty());
}

TEST(PasswordInClear, IsSentWhenThatWasWritten) {
    TestMachine machine(withoutHttps(withLogin(1)));
    for (const char* transport : {"auto", "http"}) {
        const Outcome outcome = ask({"admin@" + machine.Host(0)}, {"--transport", transport, "classes"});
        EXPECT_EQ(outcome.status, 0) << outcome.err;
    }
}

TEST(PasswordInClear, CostsTheNodeThatOffersNothingElseOnly) {
    TestMachine::Options second = withoutHttps(withLogin(2));
    TestMachine machine(second);
    cimom::Endpoint https;
    https.address = machine.Host(0);
    https.port = 5989;
    https.tls = true;
    https.repository = cimom::Repository::sampleNode(0);
    machine.Server().listen(https);
    const Outcome outcome = askSystems(machine.Hosts(), {"--user", "admin"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(nodesIn(outcome), ElementsAre("1"));
    EXPECT_EQ(requestsAt(machine, 1), 0U);
    EXPECT_THAT(outcome.err,
                HasSubstr("node 2 (" + machine.Host(1) + "): not asked: HTTPS: connection refused"));
}

TEST(Transport, HttpsAloneIsForAnyNumberOfNodes) {
    TestMachine machine(2);
    const Outcome outcome = askSystems(machine.Hosts(), {"--transport", "https"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(nodesIn(outcome), ElementsAre("1", "2"));
    machine.Server().close(machine.Host(1), 5989);
    machine.ClearRequests();
    const Outcome one = askSystems(machine.Hosts(), {"--transport", "https"});
    EXPECT_EQ(one.status, 3);
    EXPECT_THAT(nodesIn(one), ElementsAre("1"));
    EXPECT_EQ(requestsAt(machine, 1), 0U) << "not over HTTP either";
}

TEST(LastNode, OfSeveralKeepsItsNumber) {
    TestMachine machine(2);
    machine.Kill(0);
    EXPECT_THAT(nodesIn(askSystems(machine.Hosts())), ElementsAre("2"));
}

}  // namespace tool
