#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cimhttp/ClientObserver.h"
#include "cimhttp/PegClient.h"
#include "cimhttp/TCimHTTPNamespace.h"
#include "tests/support/FakeNodes.h"
#include "tests/support/PluginTest.h"
#include "tests/support/TCimHTTPNamespaceTestAccess.h"
#include "vskcore/THostSetup.h"
#include "vskcore/TVSKException.h"

namespace NQELVSK20 {
namespace {

using Access = TCimHTTPNamespaceTestAccess;
using Lines = std::vector<RecordingLogger::Line>;
using Names = std::vector<std::string>;

constexpr const char* kEnterSingle =
    "Entering TCimHTTPNamespace::connect - Connect to single node cimom via http or https.";
constexpr const char* kExitSingle =
    "Exiting TCimHTTPNamespace::connect - Connect to single node cimom via http or https.";
constexpr const char* kEnterMulti =
    "Entering TCimHTTPNamespace::connect - Connect to multinode cimom via http or https";
constexpr const char* kExitMulti =
    "Exiting TCimHTTPNamespace::connect - Connect to multinode cimom via http or https";
constexpr const char* kEnterNode = "Entering TCimHTTPNamespace::connect - Connect to cimom via http or https";

class ConnectTest : public PluginTest {
protected:
    static std::string ConnectFailure(const char* form, const std::string& host, int port) {
        return "CannotConnectException in PegClient::" + std::string(form) + "(): Cannot connect to " + host +
               ":" + std::to_string(port) + ". Connection failed.";
    }

    static bool Answers(PegClient* client) {
        return !client->EnumerateClassNames("root/cimv2", "", false, 5000).empty();
    }
};

TEST_F(ConnectTest, SingleNodeSavesCredentialsAndThePlainPortAndDetectsOnce) {
    TestMachine machine;
    const auto nameSpace = MakeNamespace();
    Access::SetDetectionDone(false);
    nameSpace->connect(machine.Host(0), "admin", "secret");
    EXPECT_TRUE(nameSpace->isConnected());
    EXPECT_EQ(Access::Hosts(*nameSpace), Names{machine.Host(0)});
    EXPECT_EQ(Access::Users(*nameSpace), Names{"admin"});
    EXPECT_EQ(Access::Passwords(*nameSpace), Names{"secret"});
    EXPECT_EQ(Access::Port(*nameSpace), 5988U);
    EXPECT_EQ(machine.Requests(), Names{"0 EnumerateInstances VMware_HypervisorSoftwareIdentity"});
    EXPECT_EQ(log_.Lines().front(), RecordingLogger::Line(3, kEnterSingle));
    EXPECT_EQ(log_.Lines()[1], RecordingLogger::Line(3, kEnterNode));
    EXPECT_EQ(log_.Lines().back(), RecordingLogger::Line(3, kExitSingle));
}

TEST_F(ConnectTest, CountsAsConnectedWhenTheServerCannotBeReached) {
    const std::string nobody = TestMachine::AddressOf(0);
    const auto nameSpace = MakeNamespace();
    nameSpace->connect(nobody, "", "");
    EXPECT_TRUE(nameSpace->isConnected());
    EXPECT_EQ(log_.Lines(), (Lines{{3, kEnterSingle},
                                   {3, kEnterNode},
                                   {3, ConnectFailure("HTTPSConnect", nobody, 5989)},
                                   {3, ConnectFailure("HTTPConnect", nobody, 5988)},
                                   {3, kExitSingle}}));
    EXPECT_TRUE(pauses_.empty());
}

TEST_F(ConnectTest, ListsOfDifferentOrNoLengthAreRefused) {
    const auto nameSpace = MakeNamespace();
    const Names none;
    const Names one{"a"};
    const Names two{"a", "b"};
    const std::vector<std::vector<Names>> wrong{
        {two, two, one}, {two, one, two}, {one, two, two}, {none, none, none}, {one, none, none}};
    for (const auto& lists : wrong) {
        log_.Clear();
        try {
            nameSpace->connect(lists[0], lists[1], lists[2]);
            FAIL() << "no exception";
        } catch (const TVSKException& error) {
            EXPECT_EQ(error.GetStatusCode(), eVSKRemoteFailure);
        }
        EXPECT_EQ(log_.Lines(), (Lines{{3, kEnterMulti}, {3, "The input auth info is not correct!"}}));
    }
    EXPECT_FALSE(nameSpace->isConnected());
    EXPECT_TRUE(Access::Hosts(*nameSpace).empty());
    EXPECT_EQ(nameSpace->getPegClientVec().size(), 1U);
}

TEST_F(ConnectTest, SeveralNodesGetAClientEachUnderTheirControllersNumber) {
    TestMachine machine(3);
    THostSetup::SetBMCMapping([](int node) { return 2 - node; });
    const auto nameSpace = MakeNamespace();
    Access::SetDetectionDone(false);
    nameSpace->connect(machine.Hosts(), Names{"a", "b", "c"}, Names{"x", "y", "z"});
    EXPECT_EQ(log_.Lines(),
              (Lines{{3, kEnterMulti}, {3, kEnterNode}, {3, kEnterNode}, {3, kEnterNode}, {3, kExitMulti}}));
    EXPECT_TRUE(nameSpace->isConnected());
    EXPECT_TRUE(Access::IsMultiNode(*nameSpace));
    EXPECT_EQ(Access::Users(*nameSpace), (Names{"a", "b", "c"}));
    EXPECT_EQ(Access::Port(*nameSpace), 0U);
    const auto nodes = nameSpace->getPegClientVec();
    ASSERT_EQ(nodes.size(), 3U);
    const Names keys{"3", "2", "1"};
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        ASSERT_EQ(nodes[i].size(), 1U);
        EXPECT_EQ(nodes[i].begin()->first, keys[i]);
        EXPECT_TRUE(Answers(nodes[i].begin()->second));
    }
    EXPECT_EQ(machine.Requests(),
              (Names{"0 EnumerateClassNames ", "1 EnumerateClassNames ", "2 EnumerateClassNames "}));
}

TEST_F(ConnectTest, SeveralNodesFormWithOneNodeIsNoMultiNode) {
    TestMachine machine;
    const auto nameSpace = MakeNamespace();
    nameSpace->connect(machine.Hosts(), Names{""}, Names{""});
    EXPECT_TRUE(nameSpace->isConnected());
    EXPECT_FALSE(Access::IsMultiNode(*nameSpace));
    EXPECT_EQ(nameSpace->getPegClientVec().size(), 1U);
}

TEST_F(ConnectTest, NodeThatCannotBeReachedDoesNotStopTheOthers) {
    TestMachine machine(3);
    machine.Kill(1);
    const auto nameSpace = MakeNamespace();
    ConnectTo(*nameSpace, machine);
    EXPECT_EQ(log_.Lines(), (Lines{{3, kEnterMulti},
                                   {3, kEnterNode},
                                   {3, kEnterNode},
                                   {3, ConnectFailure("HTTPSConnect", machine.Host(1), 5989)},
                                   {3, ConnectFailure("HTTPConnect", machine.Host(1), 5988)},
                                   {3, kEnterNode},
                                   {3, kExitMulti}}));
    const auto nodes = nameSpace->getPegClientVec();
    EXPECT_TRUE(Answers(nodes[0].begin()->second));
    EXPECT_FALSE(Answers(nodes[1].begin()->second));
    EXPECT_TRUE(Answers(nodes[2].begin()->second));
}

/// Breaks its promise not to throw, with an exception that the remote library might have thrown.
class ThrowingObserver : public ClientObserver {
public:
    bool AttemptFailed(const ClientFailure&) override {
        throw Pegasus::Exception(Pegasus::String("not this one"));
    }
    void Recovered(const ClientFailure&) override {}
    void Connected(std::size_t, bool) override {}
};

// No client lets an exception of the remote library out by itself.
TEST_F(ConnectTest, ExceptionThatLeavesANodesClientIsLoggedAndDoesNotStopTheOthers) {
    const FakeNodes machine(2);
    ThrowingObserver observer;
    const auto nameSpace = MakeNamespace();
    nameSpace->ObserveClients(&observer);
    nameSpace->connect(Names{"nobody", machine.Hosts()[1]}, Names(2), Names(2));
    EXPECT_EQ(log_.Lines(),
              (Lines{{3, kEnterMulti},
                     {3, kEnterNode},
                     {3, "CannotConnectException in PegClient::HTTPSConnect(): no such node: nobody"},
                     {3,
                      "TCimHTTPNamespace::connect - Connect to cimom via http or https failed, "
                      "error:not this one"},
                     {3, kEnterNode},
                     {3, kExitMulti}}));
    EXPECT_TRUE(nameSpace->isConnected());
    nameSpace->ObserveClients(nullptr);
    nameSpace->getPegClientVec().at(1).begin()->second->GetClass("root/cimv2", "T_A", 5000, true, true, false,
                                                                 {});
    EXPECT_EQ(machine.Requests(), Names{"1 GetClass T_A"});
}

TEST_F(ConnectTest, WithoutInitThereIsNoNodeToConnect) {
    TestMachine machine(2);
    const auto nameSpace = MakeUninitNamespace();
    ConnectTo(*nameSpace, machine);
    EXPECT_TRUE(nameSpace->getPegClientVec().empty());
    EXPECT_EQ(machine.Server().connectionsAccepted(), 0U);
    nameSpace->disconnect();
    nameSpace->connect(machine.Host(0), "", "");
    EXPECT_TRUE(nameSpace->getPegClientVec().empty());
}

TEST_F(ConnectTest, ViaHttpSavesThePortGivenAndConnectsToThePlainPort) {
    TestMachine::Options options;
    options.https = false;
    TestMachine machine(options);
    const auto nameSpace = MakeNamespace();
    Access::SetDetectionDone(false);
    nameSpace->ConnectViaHttp(machine.Host(0), "admin", "secret", 8080);
    EXPECT_EQ(log_.Lines(), (Lines{{3, "Entering TCimHTTPNamespace::ConnectViaHttp"},
                                   {3, "Entering TCimHTTPNamespace::ConnectViaHttp -With Node Num"},
                                   {3, "Exiting TCimHTTPNamespace::ConnectViaHttp -With Node Num"},
                                   {3, "Exiting TCimHTTPNamespace::ConnectViaHttp"}}));
    EXPECT_EQ(Access::Port(*nameSpace), 8080U);
    EXPECT_TRUE(nameSpace->isConnected());
    EXPECT_TRUE(machine.Requests().empty());
    EXPECT_TRUE(Answers(nameSpace->getPegClient()));
    EXPECT_EQ(machine.Server().requests().front().port, 5988);
}

TEST_F(ConnectTest, ViaHttpsConnectsToTheTlsPortAndDetects) {
    TestMachine::Options options;
    options.http = false;
    TestMachine machine(options);
    const auto nameSpace = MakeNamespace();
    Access::SetDetectionDone(false);
    nameSpace->ConnectViaHttps(machine.Host(0), "", "", 8443);
    EXPECT_EQ(log_.Lines().front(), RecordingLogger::Line(3, "Entering TCimHTTPNamespace::ConnectViaHttps"));
    EXPECT_EQ(log_.Lines()[1],
              RecordingLogger::Line(3, "Entering TCimHTTPNamespace::ConnectViaHttps - With Node Num"));
    EXPECT_EQ(log_.Lines()[2],
              RecordingLogger::Line(3, "Exiting TCimHTTPNamespace::ConnectViaHttps - With Node Num"));
    EXPECT_EQ(log_.Lines().back(), RecordingLogger::Line(3, "Exiting TCimHTTPNamespace::ConnectViaHttps"));
    EXPECT_EQ(Access::Port(*nameSpace), 8443U);
    EXPECT_EQ(machine.Requests(), Names{"0 EnumerateInstances VMware_HypervisorSoftwareIdentity"});
    EXPECT_EQ(machine.Server().requests().front().port, 5989);
}

TEST_F(ConnectTest, NodeFormsDoNothingForANodeThatIsNotThere) {
    TestMachine machine;
    const auto nameSpace = MakeNamespace();
    Access::ConnectNodeViaHttps(*nameSpace, 1, machine.Host(0), 5989);
    EXPECT_EQ(log_.Lines(), (Lines{{3, "Entering TCimHTTPNamespace::ConnectViaHttps - With Node Num"},
                                   {3, "Exiting TCimHTTPNamespace::ConnectViaHttps - With Node Num"}}));
    log_.Clear();
    Access::ConnectNodeViaHttp(*nameSpace, 1, machine.Host(0), 5988);
    EXPECT_EQ(log_.Lines(), (Lines{{3, "Entering TCimHTTPNamespace::ConnectViaHttp -With Node Num"},
                                   {3, "Exiting TCimHTTPNamespace::ConnectViaHttp -With Node Num"}}));
    EXPECT_EQ(machine.Server().connectionsAccepted(), 0U);
    EXPECT_FALSE(nameSpace->isConnected());
    EXPECT_EQ(nameSpace->getPegClientVec().size(), 1U);
}

TEST_F(ConnectTest, NodeFormsConnectWithoutCountingAsConnected) {
    TestMachine machine;
    const auto nameSpace = MakeNamespace();
    Access::ConnectNodeViaHttp(*nameSpace, 0, machine.Host(0), 5988);
    EXPECT_FALSE(nameSpace->isConnected());
    EXPECT_TRUE(Answers(nameSpace->getPegClient()));
}

TEST_F(ConnectTest, DisconnectLeavesNodeZeroForTheNextConnect) {
    TestMachine machine(3);
    const auto nameSpace = Connected(machine);
    PegClient* first = nameSpace->getPegClient();
    nameSpace->disconnect();
    EXPECT_FALSE(nameSpace->isConnected());
    ASSERT_EQ(nameSpace->getPegClientVec().size(), 1U);
    EXPECT_EQ(nameSpace->getPegClientVec()[0].begin()->second, first);
    EXPECT_EQ(nameSpace->getPegClient(), first);
    EXPECT_EQ(Access::Hosts(*nameSpace), machine.Hosts());
    EXPECT_FALSE(Answers(first));
    ConnectTo(*nameSpace, machine);
    EXPECT_EQ(nameSpace->getPegClientVec().size(), 3U);
    EXPECT_TRUE(Answers(nameSpace->getPegClientVec()[2].begin()->second));
}

TEST_F(ConnectTest, DisconnectWhenNotConnectedDoesNothing) {
    const auto nameSpace = MakeNamespace();
    nameSpace->disconnect();
    EXPECT_EQ(nameSpace->getPegClientVec().size(), 1U);
    EXPECT_TRUE(log_.Lines().empty());
}

TEST_F(ConnectTest, SetTimeoutReachesEveryNodeAndConnectingSetsItsOwn) {
    TestMachine machine(2);
    const auto nameSpace = MakeNamespace();
    nameSpace->setTimeout(1234);
    EXPECT_EQ(nameSpace->getPegClient()->GetCIMClient()->getTimeout(), 1234U);
    ConnectTo(*nameSpace, machine);
    for (const auto& node : nameSpace->getPegClientVec()) {
        EXPECT_EQ(node.begin()->second->GetCIMClient()->getTimeout(), 65535000U);
    }
    nameSpace->setTimeout(4321);
    for (const auto& node : nameSpace->getPegClientVec()) {
        EXPECT_EQ(node.begin()->second->GetCIMClient()->getTimeout(), 4321U);
    }
}

}  // namespace
}  // namespace NQELVSK20
