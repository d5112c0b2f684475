#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string>

#include "tests/model/ModelTest.h"

namespace NQELVSK20 {
namespace {

// A chain of five classes with the keys at the top, as most of a real server's classes have them.
class InheritedKeys : public ModelTest {
protected:
    static void DeclareChain(TestMachine& machine) {
        Declare(machine, {ClassXml("X_Top", "",
                                   KeyXml("SystemName", "string") + KeyXml("DeviceID", "string") +
                                       KeyXml("Bank", "uint8")),
                          ClassXml("X_Second", "X_Top", PropertyXml("Caption", "string")),
                          ClassXml("X_Third", "X_Second"), ClassXml("X_Fourth", "X_Third"),
                          ClassXml("X_Leaf", "X_Fourth", PropertyXml("Speed", "uint32"))});
    }

    static std::string Leaf(std::size_t node, std::size_t number) {
        return InstanceXml("X_Leaf",
                           PropertyXml("DeviceID", "string", ("fan " + std::to_string(number)).c_str()) +
                               PropertyXml("Speed", "uint32", std::to_string(number).c_str()) +
                               PropertyXml("Caption", "string", "a \"quoted\" text") +
                               PropertyXml("Bank", "uint8", "3") +
                               PropertyXml("SystemName", "string", std::to_string(node).c_str()));
    }

    static std::string Path(std::size_t node, std::size_t number) {
        return "X_Leaf.Bank=3,DeviceID=\"fan " + std::to_string(number) + "\",SystemName=\"" +
               std::to_string(node) + "\"";
    }
};

TEST_F(InheritedKeys, GiveRightPathsInOrderWithFewRequests) {
    constexpr std::size_t kNodes = 4;
    constexpr std::size_t kInstances = 2000;
    TestMachine machine(Nodes(kNodes));
    DeclareChain(machine);
    Names expected;
    for (std::size_t node = 0; node < kNodes; ++node) {
        for (std::size_t i = 0; i < kInstances; ++i) {
            DeclareOn(machine, node, {Leaf(node, i)});
            expected.push_back(Path(node, i));
        }
    }
    std::sort(expected.begin(), expected.end());
    ASSERT_EQ(std::adjacent_find(expected.begin(), expected.end()), expected.end()) << "all are different";
    const Class leaf = GetClass(Connected(machine), "X_Leaf");
    ASSERT_TRUE(leaf);

    machine.ClearRequests();
    const Instances instances = InstancesOf(leaf);
    EXPECT_EQ(PathsOf(instances), expected);
    // The chain is read once, and only because its keys are needed.
    EXPECT_EQ(machine.Requests(), (Names{"0 EnumerateInstances X_Leaf", "0 GetClass X_Leaf",
                                         "0 GetClass X_Fourth", "0 GetClass X_Third", "0 GetClass X_Second",
                                         "0 GetClass X_Top", "1 EnumerateInstances X_Leaf",
                                         "2 EnumerateInstances X_Leaf", "3 EnumerateInstances X_Leaf"}));
    ASSERT_EQ(instances.size(), kNodes * kInstances);
    for (const Instance& instance : instances) {
        const std::string number = TextOf(instance, "DeviceID").substr(4);
        ASSERT_EQ(TextOf(instance, "Speed"), number);
        ASSERT_EQ(TextOf(instance, "NodeID"), std::to_string(std::stoi(TextOf(instance, "SystemName")) + 1));
    }

    machine.ClearRequests();
    EXPECT_EQ(InstancesOf(leaf).size(), kNodes * kInstances);
    EXPECT_EQ(machine.Requests(), (Names{"0 EnumerateInstances X_Leaf", "1 EnumerateInstances X_Leaf",
                                         "2 EnumerateInstances X_Leaf", "3 EnumerateInstances X_Leaf"}));
}

TEST_F(InheritedKeys, ServeForFindingOneOfManyInstances) {
    TestMachine machine(Nodes(1));
    DeclareChain(machine);
    for (std::size_t i = 0; i < 20; ++i) {
        DeclareOn(machine, 0, {Leaf(0, i)});
    }
    const Class leaf = GetClass(Connected(machine), "X_Leaf");
    const Instance found = leaf->FindInstance(
        Reference("root/cimv2:x_leaf.systemname=\"0\",deviceid=\"fan 7\",bank=3"), TContext());
    ASSERT_TRUE(found);
    EXPECT_EQ(TextOf(found, "Speed"), "7");
}

// Nodes that fail while they are asked for instances. The chain of superclasses is not yet known when the
// first node fails.
class FailingNodes : public InheritedKeys {
protected:
    void DeclareLeaves(TestMachine& machine) {
        DeclareChain(machine);
        for (std::size_t node = 0; node < machine.Hosts().size(); ++node) {
            DeclareOn(machine, node, {Leaf(node, 1), Leaf(node, 2)});
        }
    }

    static cimom::Fault On(const std::string& host, cimom::Fault::Kind kind) {
        cimom::Fault fault;
        fault.kind = kind;
        fault.address = host;
        fault.operation = "EnumerateInstances";
        return fault;
    }

    static std::string Unreachable(const char* form, const std::string& host, int port) {
        return "CannotConnectException in PegClient::" + std::string(form) + "(): Cannot connect to " + host +
               ":" + std::to_string(port) + ". Connection failed.";
    }

    static std::string Received(int node, int count) {
        return "DEBUG: TCimHTTPClass:EnumerateInstances pegclient " + std::to_string(node) +
               " get instance of X_Leaf\nX_Leaf instance size " + std::to_string(count) + "\n";
    }
};

TEST_F(FailingNodes, OneThatDiesAndOneThatRefusesKeepNoOtherFromAnswering) {
    TestMachine machine(Nodes(4));
    DeclareLeaves(machine);
    const Class leaf = GetClass(Connected(machine), "X_Leaf");
    cimom::Fault dies = On(machine.Host(0), cimom::Fault::Kind::CloseAtByte);
    dies.bytes = 900;  // within the body
    machine.Server().inject(dies);
    cimom::Fault refuses = On(machine.Host(2), cimom::Fault::Kind::CimError);
    refuses.code = 1;
    refuses.text = "no fans today";
    machine.Server().inject(refuses);
    whilePausing_ = [&] { machine.Kill(0); };  // gone for good before the second attempt
    log_.Clear();
    const Instances instances = InstancesOf(leaf);
    EXPECT_EQ(PathsOf(instances), (Names{Path(1, 1), Path(3, 1), Path(1, 2), Path(3, 2)}));
    EXPECT_EQ(TextsOf(instances, "NodeID"), (Names{"2", "4", "2", "4"}));
    EXPECT_EQ(TextsOf(instances, "Speed"), (Names{"1", "1", "2", "2"}));
    EXPECT_EQ(pauses_, (std::vector<unsigned int>{5000, 5000}));

    const std::string& dead = machine.Host(0);
    ASSERT_GE(log_.Lines().size(), 2U);
    const std::string broken = log_.Lines()[1].second;
    EXPECT_EQ(broken.find("Exception in PegClient::EnumerateInstances(): "), 0U) << broken;
    const Lines expected{{3, "DEBUG: TCimHTTPClass:EI Total Clients 4\n"},
                         {3, broken},
                         {3, Unreachable("HTTPSConnect", dead, 5989)},
                         {3, Unreachable("HTTPConnect", dead, 5988)},
                         {3, "Exception in PegClient::EnumerateInstances(): not connected"},
                         {3, Unreachable("HTTPSConnect", dead, 5989)},
                         {3, Unreachable("HTTPConnect", dead, 5988)},
                         {3, Received(0, 0)},
                         {3, Received(1, 2)},
                         {3, "CIMException in PegClient::EnumerateInstances(): no fans today"},
                         {3, Received(2, 0)},
                         {3, Received(3, 2)}};
    Lines seen;
    std::copy_if(log_.Lines().begin(), log_.Lines().end(), std::back_inserter(seen),
                 [](const RecordingLogger::Line& line) {
                     return line.second.find("TCimHTTPNamespace::GetClass") == std::string::npos;
                 });
    EXPECT_EQ(seen, expected);
}

TEST_F(FailingNodes, OneThatComesBackIsAskedASecondTime) {
    TestMachine machine(Nodes(2));
    DeclareLeaves(machine);
    const Class leaf = GetClass(Connected(machine), "X_Leaf");
    cimom::Fault stumbles = On(machine.Host(1), cimom::Fault::Kind::CloseBeforeAnswer);
    stumbles.times = 1;
    machine.Server().inject(stumbles);
    EXPECT_EQ(PathsOf(InstancesOf(leaf)), (Names{Path(0, 1), Path(1, 1), Path(0, 2), Path(1, 2)}));
    EXPECT_EQ(pauses_, std::vector<unsigned int>{5000});
}

TEST_F(FailingNodes, AClassThatANodeDoesNotKnowHasNoInstancesThere) {
    TestMachine machine(Nodes(2));
    DeclareOn(machine, 0,
              {ClassXml("X_Fan", "", KeyXml("Id", "string")),
               InstanceXml("X_Fan", PropertyXml("Id", "string", "a"))});
    DeclareOn(machine, 1, {ClassXml("X_Other", "", KeyXml("Id", "string"))});
    const Class fan = GetClass(Connected(machine), "X_Fan");
    log_.Clear();
    EXPECT_EQ(PathsOf(InstancesOf(fan)), Names{"X_Fan.Id=\"a\""});
    EXPECT_EQ(log_.LinesWith("CIMException in PegClient::EnumerateInstances(): ").size(), 1U);
}

}  // namespace
}  // namespace NQELVSK20
