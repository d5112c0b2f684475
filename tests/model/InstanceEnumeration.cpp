#include <gtest/gtest.h>

#include <string>

#include "tests/model/ModelTest.h"

namespace NQELVSK20 {
namespace {

using Type = TCIMValue::TCIMType;

class InstanceEnumeration : public ModelTest {
protected:
    /// A class with a string key, and an instance of it.
    static std::string Fan() { return ClassXml("X_Fan", "", KeyXml("Id", "string")); }
    static std::string Fan(const char* id) { return InstanceXml("X_Fan", PropertyXml("Id", "string", id)); }

    static std::string Unreadable(const std::string& property) {
        return "4TCimHTTPClass::EnumerateInstances - Unable to retrieve property: " + property;
    }
};

TEST_F(InstanceEnumeration, DeliversEveryInstanceInTheOrderOfThePaths) {
    TestMachine machine(Nodes(1));
    Declare(machine, {Fan(), Fan("c"), Fan("a"), Fan("b")});
    const Class fan = GetClass(Connected(machine), "X_Fan");
    const Instances instances = InstancesOf(fan);
    EXPECT_EQ(PathsOf(instances), (Names{"X_Fan.Id=\"a\"", "X_Fan.Id=\"b\"", "X_Fan.Id=\"c\""}));
    for (const Instance& instance : instances) {
        EXPECT_EQ(instance->GetClass(TContext()), fan);
    }
}

TEST_F(InstanceEnumeration, LogsTheNumberOfNodesAndWhatEachOfThemGave) {
    TestMachine machine(Nodes(2));
    DeclareOn(machine, 0, {Fan(), Fan("a"), Fan("b")});
    DeclareOn(machine, 1, {Fan(), Fan("c")});
    const Class fan = GetClass(Connected(machine), "X_Fan");
    log_.Clear();
    InstancesOf(fan);
    const auto lines = log_.LinesWith("DEBUG: ");
    EXPECT_EQ(lines, (Lines{{3, "DEBUG: TCimHTTPClass:EI Total Clients 2\n"},
                            {3,
                             "DEBUG: TCimHTTPClass:EnumerateInstances pegclient 0 get instance of X_Fan\n"
                             "X_Fan instance size 2\n"},
                            {3,
                             "DEBUG: TCimHTTPClass:EnumerateInstances pegclient 1 get instance of X_Fan\n"
                             "X_Fan instance size 1\n"}}));
    EXPECT_EQ(log_.Lines().front(), lines.front());
    EXPECT_EQ(log_.Lines().back(), lines.back());
}

TEST_F(InstanceEnumeration, AsksEveryNodeOnceWithTheFlagsThatTheHostExpects) {
    TestMachine machine(Nodes(2));
    Declare(machine, {Fan(), Fan("a")});
    const Class fan = GetClass(Connected(machine), "X_Fan");
    InstancesOf(fan);
    machine.ClearRequests();
    for (const bool deep : {false, true}) {
        InstancesOf(fan, deep);
        const auto seen = machine.Server().requests();
        EXPECT_EQ(machine.Requests(), (Names{"0 EnumerateInstances X_Fan", "1 EnumerateInstances X_Fan"}));
        for (const auto& request : seen) {
            EXPECT_EQ(ArgumentOf(request, "DeepInheritance", "TRUE"), deep ? "TRUE" : "FALSE");
            EXPECT_EQ(ArgumentOf(request, "LocalOnly", "TRUE"), "TRUE");
            EXPECT_EQ(ArgumentOf(request, "IncludeQualifiers", "FALSE"), "FALSE");
            EXPECT_EQ(ArgumentOf(request, "IncludeClassOrigin", "FALSE"), "FALSE");
            EXPECT_EQ(ArgumentOf(request, "PropertyList", "none"), "none");
        }
        machine.ClearRequests();
    }
}

TEST_F(InstanceEnumeration, ThePathIsTheSameOnTwoNodesAndTheFirstNodesInstanceStays) {
    TestMachine machine(Nodes(2));
    const std::string fan = ClassXml("X_Fan", "", KeyXml("Id", "string") + PropertyXml("Speed", "uint16"));
    const auto instance = [](const char* speed) {
        return InstanceXml("X_Fan", PropertyXml("Id", "string", "a") + PropertyXml("Speed", "uint16", speed));
    };
    DeclareOn(machine, 0, {fan, instance("100")});
    DeclareOn(machine, 1, {fan, instance("200")});
    const Instances instances = InstancesOf(GetClass(Connected(machine), "X_Fan"));
    EXPECT_EQ(TextsOf(instances, "Speed"), Names{"100"});
    EXPECT_EQ(TextsOf(instances, "NodeID"), Names{"1"});
}

TEST_F(InstanceEnumeration, ACallbacksFalseEndsEverything) {
    TestMachine machine(Nodes(1));
    Declare(machine, {Fan(), Fan("a"), Fan("b"), ClassXml("X_Small", "X_Fan"),
                      InstanceXml("X_Small", PropertyXml("Id", "string", "c"))});
    const Namespace nameSpace = Connected(machine);
    const Class fan = GetClass(nameSpace, "X_Fan");
    GetClass(nameSpace, "X_Small");
    machine.ClearRequests();
    int calls = 0;
    fan->EnumerateInstances([&](const Instance&) { return ++calls == 0; }, true, TContext());
    EXPECT_EQ(calls, 1);
    // The second request is for the keys that a superclass might declare.
    EXPECT_EQ(machine.Requests(), (Names{"0 EnumerateInstances X_Fan", "0 GetClass X_Fan"}));
}

TEST_F(InstanceEnumeration, DeepGoesOnWithEverySubclassInTheirOrder) {
    TestMachine machine(Nodes(1));
    Declare(machine, {Fan(), ClassXml("X_Small", "X_Fan"), ClassXml("X_Tiny", "X_Small"),
                      ClassXml("X_Big", "X_Fan"), InstanceXml("X_Tiny", PropertyXml("Id", "string", "t")),
                      InstanceXml("X_Big", PropertyXml("Id", "string", "b"))});
    const Namespace nameSpace = Connected(machine);
    for (const char* name : {"X_Tiny", "X_Big"}) {
        GetClass(nameSpace, name);
    }
    const Class fan = GetClass(nameSpace, "X_Fan");
    machine.ClearRequests();
    // A server's answer for a class holds its subclasses' instances too.
    EXPECT_EQ(PathsOf(InstancesOf(fan, true)), (Names{"X_Fan.Id=\"b\"", "X_Fan.Id=\"t\"", "X_Small.Id=\"t\"",
                                                      "X_Tiny.Id=\"t\"", "X_Big.Id=\"b\""}));
    Names enumerations;
    for (const std::string& request : machine.Requests()) {
        if (request.find("EnumerateInstances") != std::string::npos) {
            enumerations.push_back(request);
        }
    }
    EXPECT_EQ(enumerations, (Names{"0 EnumerateInstances X_Fan", "0 EnumerateInstances X_Small",
                                   "0 EnumerateInstances X_Tiny", "0 EnumerateInstances X_Big"}));
}

TEST_F(InstanceEnumeration, TheRootClassHasNoInstancesButItsSubclassesDo) {
    TestMachine machine(Nodes(1));
    Declare(machine, {Fan(), Fan("a")});
    const Namespace nameSpace = Connected(machine);
    GetClass(nameSpace, "X_Fan");
    const Class root = GetClass(nameSpace, "<root>");
    machine.ClearRequests();
    EXPECT_EQ(InstancesOf(root).size(), 0U);
    EXPECT_EQ(machine.Requests(), Names{});
    EXPECT_EQ(PathsOf(InstancesOf(root, true)), Names{"X_Fan.Id=\"a\""});
    EXPECT_TRUE(pauses_.empty());
}

TEST_F(InstanceEnumeration, AFalseForASubclassEndsThatSubclassOnly) {
    TestMachine machine(Nodes(1));
    Declare(machine, {Fan(), ClassXml("X_Small", "X_Fan"), ClassXml("X_Big", "X_Fan"),
                      InstanceXml("X_Small", PropertyXml("Id", "string", "s")),
                      InstanceXml("X_Small", PropertyXml("Id", "string", "t")),
                      InstanceXml("X_Big", PropertyXml("Id", "string", "b"))});
    const Namespace nameSpace = Connected(machine);
    GetClass(nameSpace, "X_Small");
    GetClass(nameSpace, "X_Big");
    Names paths;
    GetClass(nameSpace, "X_Fan")
        ->EnumerateInstances(
            [&](const Instance& instance) {
                paths.push_back(instance->GetReference(TContext()).GetPath());
                return paths.back().compare(0, 7, "X_Small") != 0;
            },
            true, TContext());
    EXPECT_EQ(paths, (Names{"X_Fan.Id=\"b\"", "X_Fan.Id=\"s\"", "X_Fan.Id=\"t\"", "X_Small.Id=\"s\"",
                            "X_Big.Id=\"b\""}));
}

TEST_F(InstanceEnumeration, EveryInstanceTellsItsNode) {
    TestMachine machine(Nodes(3));
    DeclareOn(machine, 0, {Fan(), Fan("a")});
    DeclareOn(machine, 1, {Fan(), Fan("b")});
    DeclareOn(machine, 2, {Fan(), Fan("c")});
    const Instances instances = InstancesOf(GetClass(Connected(machine), "X_Fan"));
    EXPECT_EQ(TextsOf(instances, "NODEID"), (Names{"1", "2", "3"}));
    EXPECT_EQ(ValueOf(instances[0], "NodeID").GetType(), Type::eString);
}

TEST_F(InstanceEnumeration, InAControllersNamespaceTheNodeIsTheControllersNumber) {
    TestMachine machine(Nodes(1));
    const std::string log = ClassXml("X_Log", "", KeyXml("InstanceID", "string"));
    Declare(machine, {log, InstanceXml("X_Log", PropertyXml("InstanceID", "string", "sel:1"))}, "root/vqm2");
    const Instances instances = InstancesOf(GetClass(Connected(machine, "root/vqm2"), "X_Log"));
    EXPECT_EQ(TextsOf(instances, "NodeID"), Names{"3"});
    EXPECT_EQ(TextsOf(instances, "InstanceID"), Names{"Node3:sel:1"});
    EXPECT_EQ(PathsOf(instances), Names{"X_Log.InstanceID=\"Node3:sel:1\""});
}

TEST_F(InstanceEnumeration, OnOneNodeAnInstanceIDIsMarkedOnlyWhenItIsEmpty) {
    TestMachine machine(Nodes(1));
    Declare(machine, {ClassXml("X_Log", "", KeyXml("InstanceID", "string")),
                      InstanceXml("X_Log", PropertyXml("InstanceID", "string", "sel:1")),
                      InstanceXml("X_Log", PropertyXml("InstanceID", "string", ""))});
    const Instances instances = InstancesOf(GetClass(Connected(machine), "X_Log"));
    EXPECT_EQ(TextsOf(instances, "InstanceID"), (Names{"Node1:", "sel:1"}));
}

TEST_F(InstanceEnumeration, OfSeveralNodesEveryPropertyNamedInstanceIDIsMarked) {
    TestMachine machine(Nodes(2));
    Declare(machine, {ClassXml("X_Log", "",
                               KeyXml("InstanceID", "string") + PropertyXml("LogInstanceID", "string") +
                                   PropertyXml("instanceid2", "string")),
                      InstanceXml("X_Log", PropertyXml("InstanceID", "string", "sel:1") +
                                               PropertyXml("LogInstanceID", "string", "sel") +
                                               PropertyXml("instanceid2", "string", "x"))});
    const Instances instances = InstancesOf(GetClass(Connected(machine), "X_Log"));
    EXPECT_EQ(TextsOf(instances, "InstanceID"), (Names{"Node1:sel:1", "Node2:sel:1"}));
    EXPECT_EQ(TextsOf(instances, "LogInstanceID"), (Names{"Node1:sel", "Node2:sel"}));
    EXPECT_EQ(TextsOf(instances, "instanceid2"), (Names{"x", "x"}));
}

TEST_F(InstanceEnumeration, NullsStayNullExceptInTheStandardNamespace) {
    TestMachine machine(Nodes(1));
    const std::string fan =
        ClassXml("X_Fan", "",
                 KeyXml("Id", "string") + PropertyXml("Speed", "uint16") + PropertyXml("Label", "string"));
    const std::string instance =
        InstanceXml("X_Fan", PropertyXml("Id", "string", "a") + PropertyXml("Speed", "uint16") +
                                 PropertyXml("Label", "string"));
    Declare(machine, {fan, instance}, "root/cimv2");
    Declare(machine, {fan, instance}, "root/other");

    const Instances standard = InstancesOf(GetClass(Connected(machine, "root/cimv2"), "X_Fan"));
    ASSERT_EQ(standard.size(), 1U);
    EXPECT_FALSE(ValueOf(standard[0], "Speed").IsNull());
    EXPECT_EQ(ValueOf(standard[0], "Speed").GetType(), Type::eUint16);
    EXPECT_EQ(TextOf(standard[0], "Speed"), "0");
    EXPECT_FALSE(ValueOf(standard[0], "Label").IsNull());

    const Instances other = InstancesOf(GetClass(Connected(machine, "root/other"), "X_Fan"));
    ASSERT_EQ(other.size(), 1U);
    EXPECT_TRUE(ValueOf(other[0], "Speed").IsNull());
    EXPECT_TRUE(ValueOf(other[0], "Label").IsNull());
    Names stored;
    other[0]->EnumerateProperties(
        [&](const boost::shared_ptr<ICIMProperty>& property) {
            stored.push_back(property->GetName(TContext()));
            return true;
        },
        TContext());
    EXPECT_EQ(stored, (Names{"Id", "Label", "NodeID", "Speed"})) << "a null is stored, too";
    EXPECT_EQ(TextOf(other[0], "Id"), "a");
}

TEST_F(InstanceEnumeration, AProcessorSlotsNumberIsNarrowedTo16Bits) {
    TestMachine machine(Nodes(1));
    const std::string members = KeyXml("Tag", "string") + PropertyXml("Number", "uint32");
    const std::string values = PropertyXml("Tag", "string", "s") + PropertyXml("Number", "uint32", "70000");
    Declare(machine, {ClassXml("OMC_ProcessorSlot", "", members), InstanceXml("OMC_ProcessorSlot", values),
                      ClassXml("X_Slot", "", members), InstanceXml("X_Slot", values)});
    const Namespace nameSpace = Connected(machine);
    const Instances slots = InstancesOf(GetClass(nameSpace, "OMC_ProcessorSlot"));
    ASSERT_EQ(slots.size(), 1U);
    EXPECT_EQ(TextOf(slots[0], "Number"), "4464");
    EXPECT_EQ(ValueOf(slots[0], "Number").GetType(), Type::eUint16);
    EXPECT_EQ(TextsOf(InstancesOf(GetClass(nameSpace, "X_Slot")), "Number"), Names{"70000"});
}

// Log entries with every kind of IsLocalEvent, in a namespace that keeps nulls.
class LocalEvents : public InstanceEnumeration {
protected:
    static void DeclareEntries(TestMachine& machine, const std::string& className) {
        const auto entry = [&](const char* id, const char* isLocal) {
            return InstanceXml(className, PropertyXml("RecordID", "string", id) +
                                              PropertyXml("IsLocalEvent", "boolean", isLocal));
        };
        for (std::size_t node = 0; node < machine.Hosts().size(); ++node) {
            const std::string prefix = std::to_string(node);
            DeclareOn(machine, node,
                      {ClassXml(className, "",
                                KeyXml("RecordID", "string") + PropertyXml("IsLocalEvent", "boolean")),
                       entry((prefix + "false").c_str(), "FALSE"), entry((prefix + "null").c_str(), nullptr),
                       entry((prefix + "true").c_str(), "TRUE")},
                      "root/log");
        }
    }
};

TEST_F(LocalEvents, OfTheFirstNodeAreDroppedOnlyWhenTheySayTheyAreNotLocal) {
    TestMachine machine(Nodes(2));
    DeclareEntries(machine, "QEL_StandardMessageLogEntry");
    EXPECT_EQ(TextsOf(InstancesOf(GetClass(Connected(machine, "root/log"), "QEL_StandardMessageLogEntry")),
                      "RecordID"),
              (Names{"0null", "0true", "1false", "1null", "1true"}));
}

TEST_F(LocalEvents, OfOtherClassesAreKept) {
    TestMachine machine(Nodes(1));
    DeclareEntries(machine, "X_LogEntry");
    EXPECT_EQ(TextsOf(InstancesOf(GetClass(Connected(machine, "root/log"), "X_LogEntry")), "RecordID"),
              (Names{"0false", "0null", "0true"}));
}

TEST_F(LocalEvents, WithoutSuchAPropertyAreKept) {
    TestMachine machine(Nodes(1));
    Declare(machine, {ClassXml("QEL_StandardMessageLogEntry", "", KeyXml("RecordID", "string")),
                      InstanceXml("QEL_StandardMessageLogEntry", PropertyXml("RecordID", "string", "1"))});
    EXPECT_EQ(InstancesOf(GetClass(Connected(machine), "QEL_StandardMessageLogEntry")).size(), 1U);
}

TEST_F(InstanceEnumeration, APropertyThatTheClassDoesNotDeclareIsLoggedAndLeftOut) {
    TestMachine machine(Nodes(1));
    Declare(machine,
            {Fan(), ClassXml("X_Small", "X_Fan", PropertyXml("Speed", "uint16")),
             InstanceXml("X_Small", PropertyXml("Speed", "uint16", "7") + PropertyXml("Id", "string", "s"))});
    const Class fan = GetClass(Connected(machine), "X_Fan");
    log_.Clear();
    const Instances instances = InstancesOf(fan, true);
    EXPECT_EQ(PathsOf(instances), Names{"X_Fan.Id=\"s\""});
    EXPECT_EQ(log_.LinesWith("4TCimHTTPClass"), (Lines{{3, Unreadable("Speed")}}));
    EXPECT_EQ(StatusOf([&] { ValueOf(instances[0], "Speed"); }), eVSKNotFound);
}

TEST_F(InstanceEnumeration, KeysThatOnlyThePathHoldsAreTakenFromThere) {
    TestMachine machine(Nodes(2));
    const auto named = [](const std::string& id) {
        return "<INSTANCENAME CLASSNAME=\"X_Leaf\">"
               "<KEYBINDING NAME=\"InstanceID\"><KEYVALUE VALUETYPE=\"string\">" +
               id +
               "</KEYVALUE></KEYBINDING><KEYBINDING NAME=\"Zone\"><KEYVALUE "
               "VALUETYPE=\"numeric\">4</KEYVALUE></KEYBINDING><KEYBINDING NAME=\"Low\"><KEYVALUE "
               "VALUETYPE=\"numeric\">-4</KEYVALUE></KEYBINDING><KEYBINDING NAME=\"On\"><KEYVALUE "
               "VALUETYPE=\"boolean\">TRUE</KEYVALUE></KEYBINDING></INSTANCENAME>" +
               InstanceXml("X_Leaf", PropertyXml("Speed", "uint16", "7"));
    };
    Declare(machine, {ClassXml("X_Top", "",
                               KeyXml("InstanceID", "string") + KeyXml("Zone", "uint8") +
                                   KeyXml("Low", "sint8") + KeyXml("On", "boolean")),
                      ClassXml("X_Leaf", "X_Top", PropertyXml("Speed", "uint16")), named("a"), named("b")});
    EXPECT_EQ(PathsOf(InstancesOf(GetClass(Connected(machine), "X_Leaf"))),
              (Names{"X_Leaf.InstanceID=\"Node1:a\",Low=-4,On=TRUE,Zone=4",
                     "X_Leaf.InstanceID=\"Node1:b\",Low=-4,On=TRUE,Zone=4",
                     "X_Leaf.InstanceID=\"Node2:a\",Low=-4,On=TRUE,Zone=4",
                     "X_Leaf.InstanceID=\"Node2:b\",Low=-4,On=TRUE,Zone=4"}));
}

TEST_F(InstanceEnumeration, AReferenceKnowsTheClassThatItPointsAt) {
    TestMachine machine(Nodes(1));
    Declare(machine, {Fan(), Fan("a"), ClassXml("X_Zone", "", KeyXml("Id", "string")),
                      ClassXml("X_Cools", "",
                               QualifierXml("Association") + ReferenceKeyXml("Antecedent", "X_Fan") +
                                   ReferenceKeyXml("Dependent", "X_Zone")),
                      InstanceXml("X_Cools", ReferenceXml("Antecedent", "X_Fan", "Id", "a") +
                                                 ReferenceXml("Dependent", "X_Zone", "Id", "z")),
                      InstanceXml("X_Cools", ReferenceXml("Antecedent", "X_Fan", "Id", "b") +
                                                 ReferenceXml("Dependent", "X_Absent", "Id", "z"))});
    const Namespace nameSpace = Connected(machine);
    const Instances instances = InstancesOf(GetClass(nameSpace, "X_Cools"));
    ASSERT_EQ(instances.size(), 2U);
    const TCIMValue antecedent = ValueOf(instances[0], "Antecedent");
    EXPECT_EQ(antecedent.GetType(), Type::eReference);
    EXPECT_EQ(antecedent.GetReferencedClass(), GetClass(nameSpace, "X_Fan"));
    EXPECT_NE(antecedent.ToString(10).find("root/cimv2:X_Fan.Id=\"a\""), std::string::npos);
    EXPECT_EQ(ValueOf(instances[0], "Dependent").GetReferencedClass(), GetClass(nameSpace, "X_Zone"));
    EXPECT_FALSE(ValueOf(instances[1], "Dependent").GetReferencedClass());
}

TEST_F(InstanceEnumeration, AReferencedClassIsLookedUpOnceANode) {
    TestMachine machine(Nodes(1));
    Declare(machine, {ClassXml("X_Cools", "", ReferenceKeyXml("Dependent", "X_Absent")),
                      InstanceXml("X_Cools", ReferenceXml("Dependent", "X_Absent", "Id", "a")),
                      InstanceXml("X_Cools", ReferenceXml("Dependent", "X_Absent", "Id", "b"))});
    const Class cools = GetClass(Connected(machine), "X_Cools");
    InstancesOf(cools);
    machine.ClearRequests();
    EXPECT_EQ(InstancesOf(cools).size(), 2U);
    EXPECT_EQ(machine.Requests(), (Names{"0 EnumerateInstances X_Cools", "0 GetClass X_Absent"}));
}

TEST_F(InstanceEnumeration, ACallbackMayEnumerateAndRemoveInstances) {
    TestMachine machine(Nodes(1));
    Declare(machine, {Fan(), Fan("a"), Fan("b"), Fan("c")});
    const Class fan = GetClass(Connected(machine), "X_Fan");
    int calls = 0;
    fan->EnumerateInstances(
        [&](const Instance& instance) {
            ++calls;
            fan->RemoveInstance(instance, TContext());
            EXPECT_EQ(InstancesOf(fan).size(), 3U);
            return true;
        },
        false, TContext());
    EXPECT_EQ(calls, 3);
}

TEST_F(InstanceEnumeration, AnotherEnumerationStartsAnew) {
    TestMachine machine(Nodes(1));
    Declare(machine, {Fan(), Fan("a"), Fan("b")});
    const Namespace nameSpace = Connected(machine);
    const Class fan = GetClass(nameSpace, "X_Fan");
    const Instances first = InstancesOf(fan);
    const Instances second = InstancesOf(fan);
    EXPECT_EQ(PathsOf(first), PathsOf(second));
    EXPECT_NE(first[0], second[0]);
    nameSpace->disconnect();
    EXPECT_EQ(InstancesOf(fan).size(), 0U);
}

TEST_F(InstanceEnumeration, MultiNodeMeansMoreThanOneConnectedNode) {
    TestMachine machine(Nodes(2));
    Declare(machine, {ClassXml("X_Fan", "")});
    const Namespace single = MakeNamespace();
    single->connect(machine.Host(0), "", "");
    EXPECT_FALSE(Allocate(single, "X_Fan")->IsMultiNode());
    const Namespace both = Connected(machine);
    EXPECT_TRUE(Allocate(both, "X_Fan")->IsMultiNode());
}

TEST_F(InstanceEnumeration, WithoutANamespaceItIsABrokenPrecondition) {
    Class fan;
    {
        const Namespace nameSpace = MakeUninitNamespace();
        fan = Allocate(nameSpace, "X_Fan");
    }
#ifdef NDEBUG
    log_.Clear();
    EXPECT_EQ(InstancesOf(fan).size(), 0U);
    EXPECT_EQ(log_.Lines(),
              (Lines{{0, "TCimHTTPClass::EnumerateInstances X_Fan: assertion failed: px != 0"}}));
#else
    EXPECT_DEATH(InstancesOf(fan), "px != 0");
#endif
}

}  // namespace
}  // namespace NQELVSK20
