#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cimhttp/PegClient.h"
#include "cimhttp/TCimHTTPNamespace.h"
#include "tests/support/PluginTest.h"
#include "tests/support/TCimHTTPNamespaceTestAccess.h"

namespace NQELVSK20 {
namespace {

using Access = TCimHTTPNamespaceTestAccess;
using Names = std::vector<std::string>;

constexpr const char* kAnna = "Basic YW5uYTpvbmU=";         // anna:one
constexpr const char* kBerta = "Basic YmVydGE6dHdv";        // berta:two
constexpr const char* kCarla = "Basic Y2FybGE6dGhyZWU=";    // carla:three
const cimom::Credentials kAnnasCredentials{"anna", "one"};  // NOLINT(cert-err58-cpp): two short texts

class CredentialsTest : public PluginTest {
protected:
    static TestMachine::Options ForAnna(bool https, bool http) {
        TestMachine::Options options;
        options.https = https;
        options.http = http;
        options.credentials = kAnnasCredentials;
        return options;
    }

    static TestMachine::Options OneForEachNode() {
        TestMachine::Options options;
        options.nodes = 3;
        options.nodeCredentials = {kAnnasCredentials, {"berta", "two"}, {"carla", "three"}};
        return options;
    }

    static bool IsLetIn(PegClient* client) {
        return !client->EnumerateClassNames("root/cimv2", "", false, 5000).empty();
    }

    void ExpectAnnasAreSaved(const TCimHTTPNamespace& nameSpace, const TestMachine& machine,
                             unsigned int port) {
        EXPECT_TRUE(nameSpace.isConnected());
        EXPECT_EQ(Access::Hosts(nameSpace), Names{machine.Host(0)});
        EXPECT_EQ(Access::Users(nameSpace), Names{"anna"});
        EXPECT_EQ(Access::Passwords(nameSpace), Names{"one"});
        EXPECT_EQ(Access::Port(nameSpace), port);
    }
};

TEST_F(CredentialsTest, SingleNodeFormSavesThemAndShowsThemToTheServer) {
    TestMachine machine(ForAnna(true, true));
    const auto nameSpace = MakeNamespace();
    nameSpace->connect(machine.Host(0), "anna", "one");
    ExpectAnnasAreSaved(*nameSpace, machine, 5988);
    EXPECT_TRUE(IsLetIn(nameSpace->getPegClient()));
    EXPECT_EQ(machine.AuthorizationsOf(0), Names{kAnna});
}

TEST_F(CredentialsTest, ViaHttpSavesThemAndShowsThemToTheServer) {
    TestMachine machine(ForAnna(false, true));
    const auto nameSpace = MakeNamespace();
    nameSpace->ConnectViaHttp(machine.Host(0), "anna", "one", 8080);
    ExpectAnnasAreSaved(*nameSpace, machine, 8080);
    EXPECT_TRUE(IsLetIn(nameSpace->getPegClient()));
    EXPECT_EQ(machine.AuthorizationsOf(0), Names{kAnna});
}

TEST_F(CredentialsTest, ViaHttpsSavesThemAndShowsThemToTheServer) {
    TestMachine machine(ForAnna(true, false));
    const auto nameSpace = MakeNamespace();
    nameSpace->ConnectViaHttps(machine.Host(0), "anna", "one", 8443);
    ExpectAnnasAreSaved(*nameSpace, machine, 8443);
    EXPECT_TRUE(IsLetIn(nameSpace->getPegClient()));
    EXPECT_EQ(machine.AuthorizationsOf(0), Names{kAnna});
}

TEST_F(CredentialsTest, EachNodesOwnReachThatNodeAndNoOther) {
    TestMachine machine(OneForEachNode());
    const auto nameSpace = MakeNamespace();
    nameSpace->connect(machine.Hosts(), Names{"anna", "berta", "carla"}, Names{"one", "two", "three"});
    EXPECT_EQ(Access::Passwords(*nameSpace), (Names{"one", "two", "three"}));
    for (const auto& node : nameSpace->getPegClientVec()) {
        EXPECT_TRUE(IsLetIn(node.begin()->second)) << "node " << node.begin()->first;
    }
    EXPECT_EQ(machine.AuthorizationsOf(0), Names{kAnna});
    EXPECT_EQ(machine.AuthorizationsOf(1), Names{kBerta});
    EXPECT_EQ(machine.AuthorizationsOf(2), Names{kCarla});
}

TEST_F(CredentialsTest, EachNodesOwnAreShownAgainAfterAReconnection) {
    TestMachine machine(OneForEachNode());
    const auto nameSpace = MakeNamespace();
    nameSpace->connect(machine.Hosts(), Names{"anna", "berta", "carla"}, Names{"one", "two", "three"});
    PegClient* const second = nameSpace->getPegClientVec()[1].begin()->second;
    second->Reconnect();
    EXPECT_TRUE(IsLetIn(second));
    EXPECT_EQ(machine.AuthorizationsOf(1), Names{kBerta});
}

}  // namespace
}  // namespace NQELVSK20
