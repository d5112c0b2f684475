#include "cimhttp/TCimHTTPNamespace.h"

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/Exception.h>
#include <gtest/gtest.h>

#include "cimhttp/PegClient.h"
#include "provider/contract/PegText.h"
#include "qelc/TQELCNamespace.h"
#include "tests/support/PluginTest.h"
#include "tests/support/StatusOf.h"
#include "tests/support/TCimHTTPNamespaceTestAccess.h"
#include "tests/support/schema/TInmemUnion.h"
#include "vskcore/ICIMQualifier.h"
#include "vskcore/THostSetup.h"
#include "vskcore/TVSKException.h"

namespace NQELVSK20 {
namespace {

class NamespaceTest : public PluginTest {
protected:
    static std::vector<std::string> DeclaredQualifiers(const TCimHTTPNamespace& nameSpace) {
        std::vector<std::string> names;
        nameSpace.EnumerateQualifierDecls(
            [&](boost::shared_ptr<ICIMQualifierDecl> declaration) {
                names.push_back(declaration->GetName(TContext()) + "=" +
                                declaration->GetValue(TContext()).ToString(10));
                return true;
            },
            TContext());
        return names;
    }
};

TEST_F(NamespaceTest, IsEmptyAndUnconnectedWhenConstructed) {
    const boost::shared_ptr<TCimHTTPNamespace> nameSpace(new TCimHTTPNamespace(true, "root/cimv2"));
    EXPECT_EQ(nameSpace->getPegNSP(), nullptr);
    EXPECT_EQ(nameSpace->getPegClient(), nullptr);
    EXPECT_TRUE(nameSpace->getPegClientVec().empty());
    EXPECT_FALSE(nameSpace->isConnected());
    EXPECT_FALSE(nameSpace->getIsServeESXi());
    EXPECT_FALSE(nameSpace->getIsServeESXi5());
    EXPECT_FALSE(nameSpace->GetUpcallNamespace());
    EXPECT_EQ(nameSpace->getfCimHTTPNamespaceName(), "root/cimv2");
    EXPECT_FALSE(TCimHTTPNamespaceTestAccess::IsMultiNode(*nameSpace));
    EXPECT_TRUE(log_.Lines().empty());
}

TEST_F(NamespaceTest, InitializeLeavesExactlyThePluginsOwnQualifierDeclarations) {
    const auto nameSpace = MakeUninitNamespace();
    EXPECT_EQ(DeclaredQualifiers(*nameSpace),
              (std::vector<std::string>{"PLUGINNAME=CIMXML", "PLUGINVERSION="}));
    EXPECT_TRUE(log_.Lines().empty());
}

TEST_F(NamespaceTest, PluginQualifierDeclarationsAreStringsWithoutScopeAndFlavor) {
    const auto declaration = MakeUninitNamespace()->GetQualifierDecl("PluginVersion", TContext());
    ASSERT_TRUE(declaration);
    EXPECT_EQ(declaration->GetType(TContext()), TCIMValue::TCIMType::eString);
    EXPECT_EQ(declaration->GetScope(TContext()), 0U);
    EXPECT_EQ(declaration->GetFlavor(TContext()), 0U);
    EXPECT_FALSE(declaration->GetValue(TContext()).IsNull());
}

TEST_F(NamespaceTest, InitCreatesRemoteNameAndFirstNode) {
    const auto nameSpace = MakeNamespace("root/cimv2");
    ASSERT_NE(nameSpace->getPegNSP(), nullptr);
    EXPECT_EQ(ToText(*nameSpace->getPegNSP()), "root/cimv2");
    ASSERT_EQ(nameSpace->getPegClientVec().size(), 1U);
    EXPECT_EQ(nameSpace->getPegClientVec()[0],
              (std::map<std::string, PegClient*>{{"1", nameSpace->getPegClient()}}));
}

TEST_F(NamespaceTest, InitWithANameLeavesTheNamespacesOwnName) {
    const auto nameSpace = MakeUninitNamespace("root/cimv2");
    nameSpace->Init("root/other");
    EXPECT_EQ(ToText(*nameSpace->getPegNSP()), "root/other");
    EXPECT_EQ(nameSpace->getfCimHTTPNamespaceName(), "root/cimv2");
}

TEST_F(NamespaceTest, SecondInitOnlyAppendsOneMoreNodeWithTheSameClient) {
    const auto nameSpace = MakeNamespace();
    const auto* name = nameSpace->getPegNSP();
    const auto* client = nameSpace->getPegClient();
    nameSpace->Init();
    EXPECT_EQ(nameSpace->getPegNSP(), name);
    EXPECT_EQ(nameSpace->getPegClient(), client);
    ASSERT_EQ(nameSpace->getPegClientVec().size(), 2U);
    EXPECT_EQ(nameSpace->getPegClientVec()[1].begin()->second, client);
}

TEST_F(NamespaceTest, DisconnectAfterASecondInitKeepsTheFirstClientAlive) {
    TestMachine machine;
    const auto nameSpace = MakeNamespace();
    nameSpace->Init();
    ConnectTo(*nameSpace, machine);
    nameSpace->disconnect();
    EXPECT_EQ(nameSpace->getPegClientVec().size(), 1U);
    EXPECT_TRUE(nameSpace->getPegClient()->HTTPConnect(machine.Host(0), "", "", 5988));
}

TEST_F(NamespaceTest, NodeKeyIsOneMoreThanTheControllerNumber) {
    THostSetup::SetBMCMapping([](int) { return 0; });
    EXPECT_EQ(MakeNamespace()->getPegClientVec()[0].begin()->first, "1");
    THostSetup::SetBMCMapping([](int node) { return node + 41; });
    EXPECT_EQ(MakeNamespace()->getPegClientVec()[0].begin()->first, "42");
}

TEST_F(NamespaceTest, RemoteNameThatTheLibraryRefusesIsLoggedAndThrown) {
    const auto nameSpace = MakeUninitNamespace("root/1 bad*name");
    try {
        nameSpace->Init();
        FAIL() << "no exception";
    } catch (const TVSKException& error) {
        EXPECT_EQ(error.GetStatusCode(), eVSKRemoteFailure);
    }
    EXPECT_EQ(log_.Lines(),
              (std::vector<RecordingLogger::Line>{{3,
                                                   "TCimHTTPNamespace:Pegasus NSP Creation Fail: "
                                                   "invalid CIM namespace name: root/1 bad*name"}}));
    EXPECT_EQ(nameSpace->getPegNSP(), nullptr);
    EXPECT_EQ(nameSpace->getPegClient(), nullptr);
}

TEST_F(NamespaceTest, ClientThatCannotBeEnteredIsLoggedAndThrownAndWhatIsSetStays) {
    THostSetup::SetBMCMapping([](int) -> int { throw Pegasus::Exception("no controller"); });
    const auto nameSpace = MakeUninitNamespace();
    EXPECT_EQ(StatusOf([&] { nameSpace->Init(); }), eVSKRemoteFailure);
    EXPECT_EQ(log_.Lines(), (std::vector<RecordingLogger::Line>{
                                {3, "TCimHTTPNamespace:Pegasus Client Creation Fail: no controller"}}));
    const auto* const name = nameSpace->getPegNSP();
    const auto* const client = nameSpace->getPegClient();
    ASSERT_NE(name, nullptr);
    ASSERT_NE(client, nullptr);
    EXPECT_TRUE(nameSpace->getPegClientVec().empty());

    THostSetup::SetBMCMapping({});
    nameSpace->Init("root/other");
    EXPECT_EQ(nameSpace->getPegNSP(), name);
    EXPECT_EQ(ToText(*name), "root/cimv2");
    EXPECT_EQ(nameSpace->getPegClient(), client);
    EXPECT_EQ(nameSpace->getPegClientVec().size(), 1U);
}

TEST_F(NamespaceTest, InitAfterDeInitAppendsOneMoreNodeWithTheSameClient) {
    const auto nameSpace = MakeNamespace();
    PegClient* const client = nameSpace->getPegClient();
    nameSpace->DeInit();
    nameSpace->Init("root/other");
    EXPECT_EQ(ToText(*nameSpace->getPegNSP()), "root/other");
    const std::map<std::string, PegClient*> node{{"1", client}};
    EXPECT_EQ(nameSpace->getPegClient(), client);
    EXPECT_EQ(nameSpace->getPegClientVec(), (TCimHTTPNamespace::NodeClients{node, node}));
}

TEST_F(NamespaceTest, AssigningANamespaceOfAnotherKindChangesNothing) {
    TestMachine machine;
    const auto nameSpace = Connected(machine);
    const auto cimClass = nameSpace->GetClass("CIM_ManagedElement", TContext());
    ASSERT_TRUE(cimClass);
    const auto* const name = nameSpace->getPegNSP();
    const auto nodes = nameSpace->getPegClientVec();
    machine.ClearRequests();
    static_cast<ICIMNamespace&>(*nameSpace) = *union_;
    EXPECT_TRUE(nameSpace->isConnected());
    EXPECT_EQ(nameSpace->getPegNSP(), name);
    EXPECT_EQ(nameSpace->getPegClientVec(), nodes);
    EXPECT_EQ(nameSpace->GetUpcallNamespace(), common_);
    EXPECT_EQ(nameSpace->GetClass("CIM_ManagedElement", TContext()), cimClass);
    EXPECT_TRUE(machine.Requests().empty());
    EXPECT_TRUE(nameSpace->GetClass("OMC_NumericSensor", TContext())) << "the node still answers";
}

TEST_F(NamespaceTest, DeInitForgetsTheRemoteNameAndTheClasses) {
    TestMachine machine;
    const auto nameSpace = Connected(machine);
    const auto before = nameSpace->GetClass("CIM_ManagedElement", TContext());
    ASSERT_TRUE(before);
    nameSpace->DeInit();
    EXPECT_EQ(nameSpace->getPegNSP(), nullptr);
    EXPECT_FALSE(nameSpace->GetClass("CIM_ManagedElement", TContext()));
    nameSpace->Init();
    const auto after = nameSpace->GetClass("CIM_ManagedElement", TContext());
    EXPECT_TRUE(after);
    EXPECT_NE(before, after);
}

TEST_F(NamespaceTest, DestructorOfANamespaceThatNeverConnectedDoesNotDisconnect) {
    TestMachine machine;
    auto nameSpace = MakeNamespace();
    PegClient* client = nameSpace->getPegClient();
    ASSERT_TRUE(client->HTTPConnect(machine.Host(0), "", "", 5988));
    nameSpace.reset();
    EXPECT_FALSE(client->EnumerateClassNames("root/cimv2", "", false, 5000).empty());
}

TEST_F(NamespaceTest, DestructorOfAConnectedNamespaceDisconnectsAndLeavesNodeZerosClient) {
    TestMachine machine(2);
    auto nameSpace = Connected(machine);
    PegClient* client = nameSpace->getPegClient();
    nameSpace.reset();
    EXPECT_TRUE(client->EnumerateClassNames("root/cimv2", "", false, 5000).empty());
    EXPECT_TRUE(client->HTTPConnect(machine.Host(0), "", "", 5988));
}

TEST_F(NamespaceTest, CopiesShareTheRemoteObjectsAndOutliveEachOther) {
    TestMachine machine(2);
    auto original = Connected(machine);
    const boost::shared_ptr<TCimHTTPNamespace> copy(new TCimHTTPNamespace(*original));
    const boost::shared_ptr<TCimHTTPNamespace> assigned(new TCimHTTPNamespace(false, ""));
    static_cast<ICIMNamespace&>(*assigned) = *original;
    EXPECT_EQ(copy->getPegNSP(), original->getPegNSP());
    EXPECT_EQ(assigned->getPegClientVec(), original->getPegClientVec());
    EXPECT_TRUE(assigned->isConnected());
    original.reset();
    EXPECT_EQ(ToText(*copy->getPegNSP()), "root/cimv2");
    EXPECT_TRUE(copy->getPegClientVec()[1]
                    .begin()
                    ->second->EnumerateClassNames("root/cimv2", "", false, 5000)
                    .empty());
}

TEST_F(NamespaceTest, CopiesTakeOverEverything) {
    TestMachine machine(2);
    const boost::shared_ptr<TCimHTTPNamespace> original(new TCimHTTPNamespace(true, "root/cimv2"));
    original->Initialize({{"pluginNameQualDeclValue", TCIMValue("one.nsp")}});
    original->SetUpcallNamespace(common_, TContext());
    original->Init();
    original->connect(machine.Hosts(), {"a", "b"}, {"", ""});
    const boost::shared_ptr<TCimHTTPNamespace> copy(new TCimHTTPNamespace(*original));
    const auto assigned = MakeNamespace("root/other");
    *assigned = *original;
    for (const auto& nameSpace : {copy, assigned}) {
        EXPECT_EQ(nameSpace->getfCimHTTPNamespaceName(), "root/cimv2");
        EXPECT_EQ(nameSpace->getPegNSP(), original->getPegNSP());
        EXPECT_EQ(nameSpace->GetUpcallNamespace(), common_);
        EXPECT_EQ(TCimHTTPNamespaceTestAccess::Users(*nameSpace), (std::vector<std::string>{"a", "b"}));
        EXPECT_TRUE(TCimHTTPNamespaceTestAccess::IsMultiNode(*nameSpace));
        const auto cimClass = nameSpace->GetClass("CIM_ManagedElement", TContext());
        ASSERT_TRUE(cimClass);
        EXPECT_EQ(dynamic_cast<ICIMNamedElement&>(*cimClass)
                      .GetQualifier("PLUGINNAME", TContext())
                      ->GetValue(TContext())
                      .ToString(10),
                  "one.nsp");
        nameSpace->AllocateClass("CIM_ManagedElement", {}, TContext())->Commit(TContext());  // replaces it
    }
}

}  // namespace
}  // namespace NQELVSK20
