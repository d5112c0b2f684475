// What the name of a namespace means for the instances in it: it is the namespace's own name that counts,
// also when the requests go to another.

#include <gtest/gtest.h>

#include <string>

#include "tests/model/ModelTest.h"
#include "vskcore/THostSetup.h"

namespace NQELVSK20 {
namespace {

class InstanceEnumerationWords : public ModelTest {
protected:
    /// A namespace of one name whose requests go to one of another.
    Namespace ConnectedTo(TestMachine& machine, const std::string& name, const std::string& remoteName) {
        kept_ = MakeUninitNamespace(name);
        kept_->Init(remoteName);
        ConnectTo(*kept_, machine);
        machine.ClearRequests();
        return kept_;
    }

    /// A log class with an entry that lacks a value, in a namespace of the server.
    static void DeclareLog(TestMachine& machine, const std::string& nameSpace) {
        Declare(machine,
                {ClassXml("X_Log", "", KeyXml("InstanceID", "string") + PropertyXml("Size", "uint16")),
                 InstanceXml("X_Log",
                             PropertyXml("InstanceID", "string", "sel:1") + PropertyXml("Size", "uint16"))},
                nameSpace);
    }

    static void ExpectRequestsTo(TestMachine& machine, const std::string& lastWord) {
        for (const cimom::SeenRequest& request : machine.Server().requests()) {
            EXPECT_NE(request.body.find("<NAMESPACE NAME=\"" + lastWord + "\"/>"), std::string::npos);
        }
    }

    /// The names of the values that an instance holds, null ones included.
    static Names StoredIn(const Instance& instance) {
        Names names;
        instance->EnumerateProperties(
            [&](const boost::shared_ptr<ICIMProperty>& property) {
                names.push_back(property->GetName(TContext()));
                return true;
            },
            TContext());
        return names;
    }

private:
    Namespace kept_;
};

TEST_F(InstanceEnumerationWords, TheOwnNameDecidesThatNullsBecomeZero) {
    TestMachine machine(Nodes(1));
    DeclareLog(machine, "root/data");
    const Namespace nameSpace = ConnectedTo(machine, "root/cimv2", "root/data");
    const Instances instances = InstancesOf(GetClass(nameSpace, "X_Log"));
    ASSERT_EQ(instances.size(), 1U);
    EXPECT_FALSE(ValueOf(instances[0], "Size").IsNull());
    EXPECT_EQ(TextOf(instances[0], "Size"), "0");
    ExpectRequestsTo(machine, "data");
}

TEST_F(InstanceEnumerationWords, TheOwnNameDecidesThatNullsStayNull) {
    TestMachine machine(Nodes(1));
    DeclareLog(machine, "root/cimv2");
    const Namespace nameSpace = ConnectedTo(machine, "root/data", "root/cimv2");
    const Instances instances = InstancesOf(GetClass(nameSpace, "X_Log"));
    ASSERT_EQ(instances.size(), 1U);
    EXPECT_TRUE(ValueOf(instances[0], "Size").IsNull());
    ExpectRequestsTo(machine, "cimv2");
}

TEST_F(InstanceEnumerationWords, TheStandardNameMayBePartOfTheName) {
    TestMachine machine(Nodes(1));
    DeclareLog(machine, "root/data");
    const Namespace nameSpace = ConnectedTo(machine, "my/root/cimv2/too", "root/data");
    const Instances instances = InstancesOf(GetClass(nameSpace, "X_Log"));
    ASSERT_EQ(instances.size(), 1U);
    EXPECT_EQ(TextOf(instances[0], "Size"), "0");
}

TEST_F(InstanceEnumerationWords, TheOwnNameTellsTheController) {
    TestMachine machine(Nodes(1));
    DeclareLog(machine, "root/data");
    const Namespace nameSpace = ConnectedTo(machine, "root/vqm2", "root/data");
    const Instances instances = InstancesOf(GetClass(nameSpace, "X_Log"));
    EXPECT_EQ(TextsOf(instances, "NodeID"), Names{"3"});
    EXPECT_EQ(TextsOf(instances, "InstanceID"), Names{"Node3:sel:1"});
    ExpectRequestsTo(machine, "data");
}

TEST_F(InstanceEnumerationWords, TheNameThatRequestsGoToTellsNoController) {
    TestMachine machine(Nodes(1));
    DeclareLog(machine, "root/vqm2");
    const Namespace nameSpace = ConnectedTo(machine, "root/data", "root/vqm2");
    const Instances instances = InstancesOf(GetClass(nameSpace, "X_Log"));
    EXPECT_EQ(TextsOf(instances, "NodeID"), Names{"1"});
    EXPECT_EQ(TextsOf(instances, "InstanceID"), Names{"sel:1"});
}

TEST_F(InstanceEnumerationWords, SeveralNodesOfAControllersNamespaceShareItsNumberButNotTheirInstanceIDs) {
    TestMachine machine(Nodes(2));
    DeclareLog(machine, "root/vqm2");
    const Instances instances = InstancesOf(GetClass(Connected(machine, "root/vqm2"), "X_Log"));
    EXPECT_EQ(TextsOf(instances, "NodeID"), (Names{"3", "3"}));
    EXPECT_EQ(TextsOf(instances, "InstanceID"), (Names{"Node1:sel:1", "Node2:sel:1"}));
}

TEST_F(InstanceEnumerationWords, NodesAreToldByTheirControllersNumberNotByTheirPlace) {
    THostSetup::SetBMCMapping([](int node) { return 3 - node; });
    TestMachine machine(Nodes(2));
    DeclareLog(machine, "root/cimv2");
    const Instances instances = InstancesOf(GetClass(Connected(machine), "X_Log"));
    EXPECT_EQ(TextsOf(instances, "NodeID"), (Names{"3", "4"}));
    EXPECT_EQ(TextsOf(instances, "InstanceID"), (Names{"Node3:sel:1", "Node4:sel:1"}));
}

TEST_F(InstanceEnumerationWords, OnOneNodeAnEmptyInstanceIDTellsTheControllersNumber) {
    THostSetup::SetBMCMapping([](int node) { return node + 5; });
    TestMachine machine(Nodes(1));
    Declare(machine, {ClassXml("X_Log", "", KeyXml("InstanceID", "string")),
                      InstanceXml("X_Log", PropertyXml("InstanceID", "string", ""))});
    const Instances instances = InstancesOf(GetClass(Connected(machine), "X_Log"));
    EXPECT_EQ(TextsOf(instances, "NodeID"), Names{"6"});
    EXPECT_EQ(TextsOf(instances, "InstanceID"), Names{"Node6:"});
}

TEST_F(InstanceEnumerationWords, APropertyThatTheServerLeavesOutIsNotStored) {
    TestMachine machine(Nodes(1));
    Declare(machine, {ClassXml("X_Log", "", KeyXml("InstanceID", "string") + PropertyXml("Size", "uint16")),
                      InstanceXml("X_Log", PropertyXml("InstanceID", "string", "sel:1"))});
    const Instances instances = InstancesOf(GetClass(Connected(machine), "X_Log"));
    ASSERT_EQ(instances.size(), 1U);
    EXPECT_EQ(StoredIn(instances[0]), (Names{"InstanceID", "NodeID"}));
}

}  // namespace
}  // namespace NQELVSK20
