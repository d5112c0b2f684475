#include <gtest/gtest.h>

#include <boost/weak_ptr.hpp>
#include <string>
#include <vector>

#include "cimhttp/PegClient.h"
#include "cimhttp/TCimHTTPNamespace.h"
#include "tests/support/Declarations.h"
#include "tests/support/PluginTest.h"
#include "vskcore/ICIMInstance.h"

namespace NQELVSK20 {
namespace {

using Names = std::vector<std::string>;

/// What becomes of classes and their collected instances, which hold each other, and of the clients of nodes.
class LettingGoTest : public PluginTest {
protected:
    using Namespace = boost::shared_ptr<TCimHTTPNamespace>;
    using Class = boost::shared_ptr<ICIMClass>;
    using WeakClass = boost::weak_ptr<ICIMClass>;
    using WeakInstance = boost::weak_ptr<ICIMInstance>;

    LettingGoTest() {
        for (std::size_t node = 0; node < machine_.Hosts().size(); ++node) {
            machine_.Repository(node).addDeclarations(
                "root/cimv2",
                Declarations({ClassXml("T_Base", "", KeyXml("Id", "string")), ClassXml("T_Fan", "T_Base"),
                              InstanceXml("T_Fan", PropertyXml("Id", "string", "a")),
                              InstanceXml("T_Base", PropertyXml("Id", "string", "b"))}),
                "letting go");
        }
    }

    static TestMachine::Options TwoNodes() {
        TestMachine::Options options;
        options.nodes = 2;
        options.sampleData = false;
        return options;
    }

    static Class Get(const Namespace& nameSpace, const std::string& name) {
        return nameSpace->GetClass(name, TContext());
    }

    /// Makes an instance of a class, as a host does, and commits it.
    static WeakInstance Make(const Class& cimClass) {
        const auto instance = cimClass->CreateInstance(TContext());
        instance->Commit(TContext());
        return instance;
    }

    /// Collects the instances of a class; one of them.
    static WeakInstance Collect(const Class& cimClass) {
        WeakInstance collected;
        cimClass->EnumerateInstances(
            [&](const boost::shared_ptr<ICIMInstance>& instance) {
                collected = instance;
                EXPECT_FALSE(collected.expired());
                return false;
            },
            false, TContext());
        return collected;
    }

    static Names RootClasses(const Namespace& nameSpace) {
        Names names;
        nameSpace->EnumerateRootClasses(
            [&](const Class& cimClass) {
                names.push_back(cimClass->GetName(TContext()));
                return true;
            },
            TContext());
        return names;
    }

    static PegClient* ClientOf(const Namespace& nameSpace, std::size_t node) {
        return nameSpace->getPegClientVec().at(node).begin()->second;
    }

    static bool AnswersStill(PegClient* client) {
        return !client->EnumerateClassNames("root/cimv2", "", false, 5000).empty();
    }

    TestMachine machine_{TwoNodes()};
};

TEST_F(LettingGoTest, DeInitLeavesNoRootClassesAndFreesWhatNobodyHolds) {
    const Namespace nameSpace = Connected(machine_);
    const WeakClass fan = Get(nameSpace, "T_Fan");
    const WeakClass base = Get(nameSpace, "T_Base");
    const WeakInstance ofFan = Collect(fan.lock());
    const WeakInstance ofBase = Collect(base.lock());
    EXPECT_EQ(RootClasses(nameSpace), (Names{"T_Base", "T_Fan"}));
    ASSERT_FALSE(ofFan.expired() || ofBase.expired());

    nameSpace->DeInit();
    EXPECT_TRUE(nameSpace->isConnected());
    EXPECT_EQ(RootClasses(nameSpace), Names{});
    EXPECT_TRUE(fan.expired());
    EXPECT_TRUE(base.expired());
    EXPECT_TRUE(ofFan.expired());
    EXPECT_TRUE(ofBase.expired());
}

TEST_F(LettingGoTest, ClassHeldBeyondDeInitKeepsNoInstancesFromThenOn) {
    const Namespace nameSpace = Connected(machine_);
    Class held = Get(nameSpace, "T_Fan");
    const WeakInstance before = Collect(held);
    nameSpace->DeInit();
    EXPECT_TRUE(before.expired());

    nameSpace->Init();
    EXPECT_TRUE(Collect(held).expired()) << "delivered, and then let go";
    const WeakClass weak = held;
    held.reset();
    EXPECT_TRUE(weak.expired());
}

TEST_F(LettingGoTest, InstanceMadeOfAClassThatBelongsToNoNamespaceIsNotKept) {
    const Namespace nameSpace = Connected(machine_);
    Class held = Get(nameSpace, "T_Base");
    nameSpace->DeInit();
    nameSpace->Init();
    EXPECT_TRUE(Make(held).expired());
    const WeakClass weak = held;
    held.reset();
    EXPECT_TRUE(weak.expired()) << "its instances would hold it";
}

TEST_F(LettingGoTest, RootClassKeepsItsInstancesAsLongAsItsNamespaceAndNoLonger) {
    Namespace nameSpace = Connected(machine_);
    const Class former = Get(nameSpace, "<root>");
    EXPECT_FALSE(Make(former).expired());
    nameSpace->DeInit();
    EXPECT_FALSE(Make(former).expired()) << "the root of the emptied namespace still";

    *nameSpace = *MakeNamespace();
    EXPECT_TRUE(Make(former).expired()) << "another is its root now";

    nameSpace = Connected(machine_);
    Class last = Get(nameSpace, "<root>");
    auto instance = last->CreateInstance(TContext());
    instance->GetReference(TContext());  // asks for the keys while there is somebody to ask
    nameSpace.reset();
    instance->Commit(TContext());
    const WeakClass weak = last;
    instance.reset();
    last.reset();
    EXPECT_TRUE(weak.expired());
}

TEST_F(LettingGoTest, InstanceHeldBeyondDeInitHoldsItsClassAndNothingElse) {
    const Namespace nameSpace = Connected(machine_);
    const WeakClass fan = Get(nameSpace, "T_Fan");
    boost::shared_ptr<ICIMInstance> held = Collect(fan.lock()).lock();
    nameSpace->DeInit();
    EXPECT_FALSE(fan.expired());
    held.reset();
    EXPECT_TRUE(fan.expired());
}

TEST_F(LettingGoTest, ClassThatWasNeverCommittedIsFreedWithDeInit) {
    const Namespace nameSpace = Connected(machine_);
    const WeakClass loose = nameSpace->AllocateClass("T_Fan", Class(), TContext());
    EXPECT_TRUE(loose.expired()) << "nobody holds it before it has instances";

    Class second = nameSpace->AllocateClass("T_Fan", Class(), TContext());
    const WeakClass weak = second;
    const WeakInstance collected = Collect(second);
    second.reset();
    ASSERT_FALSE(weak.expired()) << "its instances hold it";
    nameSpace->DeInit();
    EXPECT_TRUE(weak.expired());
    EXPECT_TRUE(collected.expired());
}

TEST_F(LettingGoTest, ClassThatWasNeverCommittedIsFreedWithTheNamespace) {
    Namespace nameSpace = Connected(machine_);
    const WeakClass loose = [&] {
        const Class cimClass = nameSpace->AllocateClass("T_Fan", Class(), TContext());
        Collect(cimClass);
        return WeakClass(cimClass);
    }();
    ASSERT_FALSE(loose.expired());
    nameSpace->disconnect();
    EXPECT_TRUE(loose.expired()) << "without instances nobody holds it";

    ConnectTo(*nameSpace, machine_);
    const WeakClass other = [&] {
        const Class cimClass = nameSpace->AllocateClass("T_Base", Class(), TContext());
        Collect(cimClass);
        return WeakClass(cimClass);
    }();
    ASSERT_FALSE(other.expired());
    nameSpace.reset();
    EXPECT_TRUE(other.expired());
}

TEST_F(LettingGoTest, InstanceThatTheHostMadeIsFreedWithANamespaceThatIsNotConnected) {
    Namespace nameSpace = Connected(machine_);
    const WeakClass base = Get(nameSpace, "T_Base");
    nameSpace->disconnect();
    const WeakInstance made = Make(base.lock());
    ASSERT_FALSE(made.expired()) << "collected by its class";
    nameSpace.reset();
    EXPECT_TRUE(made.expired());
    EXPECT_TRUE(base.expired());
}

TEST_F(LettingGoTest, ManyClassesThatWereNeverCommittedAreFreedAllTheSame) {
    const Namespace nameSpace = Connected(machine_);
    const auto collectOne = [&] {
        const Class cimClass = nameSpace->AllocateClass("T_Fan", Class(), TContext());
        Collect(cimClass);
        return WeakClass(cimClass);
    };
    std::vector<WeakClass> loose;
    for (int i = 0; i < 40; ++i) {
        nameSpace->AllocateClass("T_Base", Class(), TContext());  // gone at once
        loose.push_back(collectOne());
    }
    nameSpace->DeInit();
    for (const WeakClass& cimClass : loose) {
        EXPECT_TRUE(cimClass.expired());
    }
}

TEST_F(LettingGoTest, ReplacedClassLosesItsInstancesAndKeepsNoneFromThenOn) {
    const Namespace nameSpace = Connected(machine_, "root/cimv2", true);
    Class replaced = Get(nameSpace, "T_Fan");
    const WeakInstance before = Collect(replaced);
    ASSERT_FALSE(before.expired());
    const Class second = nameSpace->AllocateClass("T_Fan", Class(), TContext());
    second->Commit(TContext());
    ASSERT_EQ(Get(nameSpace, "T_Fan"), second);
    EXPECT_TRUE(before.expired());

    EXPECT_TRUE(Collect(replaced).expired()) << "delivered, and then let go";
    EXPECT_FALSE(Collect(second).expired());
    const WeakClass weak = replaced;
    replaced.reset();
    EXPECT_TRUE(weak.expired());
}

TEST_F(LettingGoTest, DisconnectDropsTheInstancesAndKeepsTheClasses) {
    const Namespace nameSpace = Connected(machine_);
    const WeakClass fan = Get(nameSpace, "T_Fan");
    const WeakInstance collected = Collect(fan.lock());
    nameSpace->disconnect();
    EXPECT_TRUE(collected.expired());
    EXPECT_FALSE(fan.expired());

    ConnectTo(*nameSpace, machine_);
    machine_.ClearRequests();
    EXPECT_EQ(Get(nameSpace, "T_Fan"), fan.lock());
    EXPECT_TRUE(machine_.Requests().empty());
    EXPECT_FALSE(Collect(fan.lock()).expired()) << "kept again";
}

TEST_F(LettingGoTest, EndOfACopyLeavesTheOriginalItsClassesAndInstances) {
    const Namespace original = Connected(machine_);
    const Class fan = Get(original, "T_Fan");
    const WeakInstance collected = Collect(fan);
    Namespace copy(new TCimHTTPNamespace(*original));
    EXPECT_EQ(Get(copy, "T_Fan"), fan);
    copy->disconnect();
    EXPECT_FALSE(collected.expired());
    copy->DeInit();
    EXPECT_FALSE(collected.expired());
    copy.reset();
    EXPECT_FALSE(collected.expired());
    EXPECT_EQ(Get(original, "T_Fan"), fan);
}

TEST_F(LettingGoTest, EndOfAnAssignedCopyLeavesTheOriginalItsInstances) {
    const Namespace original = Connected(machine_);
    const WeakInstance collected = Collect(Get(original, "T_Fan"));
    Namespace assigned = MakeUninitNamespace();
    *assigned = *original;
    assigned.reset();
    EXPECT_FALSE(collected.expired());
}

TEST_F(LettingGoTest, AssigningFreesTheClassesOfBefore) {
    const Namespace nameSpace = Connected(machine_);
    const WeakClass fan = Get(nameSpace, "T_Fan");
    const WeakClass root = Get(nameSpace, "<root>");
    const WeakInstance collected = Collect(fan.lock());
    *nameSpace = *MakeNamespace();
    EXPECT_TRUE(collected.expired());
    EXPECT_TRUE(fan.expired());
    EXPECT_TRUE(root.expired());
    EXPECT_FALSE(nameSpace->isConnected());
}

TEST_F(LettingGoTest, ClassHeldBeyondAnAssignmentKeepsNoInstancesFromThenOn) {
    const Namespace nameSpace = Connected(machine_);
    const Class held = Get(nameSpace, "T_Fan");
    const Namespace other = MakeNamespace();
    ConnectTo(*other, machine_);
    *nameSpace = *other;
    EXPECT_TRUE(Collect(held).expired());
}

TEST_F(LettingGoTest, AssigningDisconnectsEveryNodeThatTheOtherDoesNotShare) {
    const Namespace nameSpace = Connected(machine_);
    const Namespace witness(new TCimHTTPNamespace(*nameSpace));  // keeps the clients in being
    ASSERT_TRUE(AnswersStill(ClientOf(witness, 0)));
    ASSERT_TRUE(AnswersStill(ClientOf(witness, 1)));
    *nameSpace = *MakeNamespace();
    EXPECT_FALSE(AnswersStill(ClientOf(witness, 0)));
    EXPECT_FALSE(AnswersStill(ClientOf(witness, 1)));
}

TEST_F(LettingGoTest, AssigningLeavesTheNodesThatTheOtherShares) {
    const Namespace original = Connected(machine_);
    const Namespace copy(new TCimHTTPNamespace(*original));
    *copy = *original;
    EXPECT_TRUE(AnswersStill(ClientOf(original, 0)));
    EXPECT_TRUE(AnswersStill(ClientOf(original, 1)));
    EXPECT_EQ(copy->getPegClientVec(), original->getPegClientVec());
}

TEST_F(LettingGoTest, AssigningANamespaceToItselfChangesNothing) {
    const Namespace nameSpace = Connected(machine_);
    const Class fan = Get(nameSpace, "T_Fan");
    const WeakInstance collected = Collect(fan);
    machine_.ClearRequests();
    const TCimHTTPNamespace& same = *nameSpace;
    *nameSpace = same;
    EXPECT_EQ(Get(nameSpace, "T_Fan"), fan);
    EXPECT_FALSE(collected.expired());
    EXPECT_TRUE(machine_.Requests().empty());
    EXPECT_TRUE(AnswersStill(ClientOf(nameSpace, 1)));
    nameSpace->DeInit();
    EXPECT_TRUE(collected.expired()) << "its classes are its own still";
}

}  // namespace
}  // namespace NQELVSK20
