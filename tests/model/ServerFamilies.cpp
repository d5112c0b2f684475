// Servers take LocalOnly in different ways. Whichever way, a host sees the same classes and the same paths.

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "tests/model/ModelTest.h"

namespace NQELVSK20 {
namespace {

struct Family {
    const char* name;
    cimom::LocalOnlyRules localOnly;
};

void PrintTo(const Family& family, std::ostream* out) {
    *out << family.name;
}

/// Three levels with the keys declared at the top: a fan inherits them, a pump declares one of them anew. An
/// association with its references at the top, and one below it that narrows one of the two.
class ServerFamilies : public ModelTest, public ::testing::WithParamInterface<Family> {
protected:
    static TestMachine::Options Options(std::size_t nodes) {
        TestMachine::Options options = Nodes(nodes);
        options.localOnly = GetParam().localOnly;
        return options;
    }

    static void DeclareTree(TestMachine& machine) {
        const std::string state =
            QualifiedPropertyXml("State", "uint16", QualifierXml("Units", "string", "1"));
        Declare(machine,
                {ClassXml("S_Element", "",
                          KeyXml("Id", "string") + KeyXml("Zone", "uint8") + state +
                              PropertyXml("Label", "string") + MethodXml("Reset", "uint32")),
                 ClassXml("S_Device", "S_Element",
                          PropertyXml("State", "uint16", "5") + PropertyXml("Power", "uint32")),
                 ClassXml("S_Fan", "S_Device", PropertyXml("Speed", "uint64")),
                 ClassXml("S_Pump", "S_Device", PropertyXml("Id", "string") + PropertyXml("Power", "uint32")),
                 ClassXml("S_Link", "",
                          QualifierXml("Association") + ReferenceKeyXml("Antecedent", "S_Element") +
                              ReferenceKeyXml("Dependent", "S_Element")),
                 ClassXml("S_FanLink", "S_Link",
                          ReferenceKeyXml("Antecedent", "S_Fan") + PropertyXml("Active", "boolean"))});
    }

    static std::string Keys(const char* id) {
        return PropertyXml("Id", "string", id) + PropertyXml("Zone", "uint8", "7");
    }

    static void DeclareInstances(TestMachine& machine) {
        const std::string references =
            ReferenceXml("Antecedent", "S_Fan", "Id", "f") + ReferenceXml("Dependent", "S_Pump", "Id", "p");
        Declare(machine, {InstanceXml("S_Fan", Keys("f") + PropertyXml("State", "uint16", "2") +
                                                   PropertyXml("Speed", "uint64", "3000")),
                          InstanceXml("S_Pump", Keys("p") + PropertyXml("Power", "uint32", "40")),
                          InstanceXml("S_Device", Keys("d") + PropertyXml("State", "uint16", "3")),
                          InstanceXml("S_Link", references),
                          InstanceXml("S_FanLink", references + PropertyXml("Active", "boolean", "TRUE"))});
    }

    /// A namespace over nodes of the family that hold it all.
    Namespace OnNodes(TestMachine& machine) {
        DeclareTree(machine);
        DeclareInstances(machine);
        return Connected(machine);
    }

    static Names SetPropertiesOf(const Instance& instance) {
        Names names;
        instance->EnumerateProperties(
            [&](const boost::shared_ptr<ICIMProperty>& property) {
                names.push_back(property->GetName(TContext()));
                return true;
            },
            TContext());
        return names;
    }

    static std::ptrdiff_t CountOf(const Names& names, const std::string& name) {
        return std::count(names.begin(), names.end(), name);
    }

    static Instance OnlyInstance(const Namespace& nameSpace, const std::string& className) {
        const Instances instances = InstancesOf(GetClass(nameSpace, className));
        EXPECT_EQ(instances.size(), 1U) << className;
        return instances.at(0);
    }
};

TEST_P(ServerFamilies, AnswerWithTheSamePathsAtEveryLevel) {
    TestMachine machine(Options(1));
    const Namespace nameSpace = OnNodes(machine);
    const auto paths = [&](const char* name) { return PathsOf(InstancesOf(GetClass(nameSpace, name))); };
    EXPECT_EQ(paths("S_Fan"), Names{"S_Fan.Id=\"f\",Zone=7"});
    EXPECT_EQ(paths("S_Pump"), Names{"S_Pump.Id=\"p\",Zone=7"});
    EXPECT_EQ(paths("S_Device"),
              (Names{"S_Device.Id=\"d\",Zone=7", "S_Device.Id=\"f\",Zone=7", "S_Device.Id=\"p\",Zone=7"}));
    EXPECT_EQ(paths("S_Element"),
              (Names{"S_Element.Id=\"d\",Zone=7", "S_Element.Id=\"f\",Zone=7", "S_Element.Id=\"p\",Zone=7"}));
}

TEST_P(ServerFamilies, AnswerWithTheSamePathsOfAssociations) {
    TestMachine machine(Options(1));
    const Namespace nameSpace = OnNodes(machine);
    const std::string keys =
        ".Antecedent=\"root/cimv2:S_Fan.Id=\\\"f\\\"\",Dependent=\"root/cimv2:S_Pump.Id=\\\"p\\\"\"";
    EXPECT_EQ(PathsOf(InstancesOf(GetClass(nameSpace, "S_FanLink"))), Names{"S_FanLink" + keys});
    EXPECT_EQ(PathsOf(InstancesOf(GetClass(nameSpace, "S_Link"))), Names{"S_Link" + keys});
}

TEST_P(ServerFamilies, AnswerWithEveryKeyOnce) {
    TestMachine machine(Options(1));
    const Namespace nameSpace = OnNodes(machine);
    for (const char* name : {"S_Fan", "S_Pump"}) {
        const Instance instance = OnlyInstance(nameSpace, name);
        const Names set = SetPropertiesOf(instance);
        EXPECT_EQ(CountOf(set, "Id"), 1) << name;
        EXPECT_EQ(CountOf(set, "Zone"), 1) << name;
        EXPECT_EQ(TextOf(instance, "Zone"), "7") << name;
    }
    EXPECT_EQ(TextOf(OnlyInstance(nameSpace, "S_Fan"), "ID"), "f");
    EXPECT_EQ(TextOf(OnlyInstance(nameSpace, "S_Pump"), "ID"), "p");
}

TEST_P(ServerFamilies, AnswerWithWhatTheInstancesOwnClassDeclares) {
    TestMachine machine(Options(1));
    const Namespace nameSpace = OnNodes(machine);
    EXPECT_EQ(TextOf(OnlyInstance(nameSpace, "S_Fan"), "Speed"), "3000");
    EXPECT_EQ(TextOf(OnlyInstance(nameSpace, "S_Pump"), "Power"), "40");
    EXPECT_EQ(TextOf(OnlyInstance(nameSpace, "S_FanLink"), "Active"), "true");
}

TEST_P(ServerFamilies, AnswerWithAnOverriddenPropertyOnce) {
    TestMachine machine(Options(1));
    const Namespace nameSpace = OnNodes(machine);
    const Class device = GetClass(nameSpace, "S_Device");
    EXPECT_EQ(CountOf(PropertiesOf(device), "State"), 1);
    EXPECT_EQ(device->GetPropertyDecl("State", TContext())->GetType(TContext()),
              TCIMValue::TCIMType::eUint16);
    EXPECT_EQ(CountOf(PropertiesOf(GetClass(nameSpace, "S_Pump")), "Id"), 1);
    const Instance d = InstancesOf(device).at(0);
    EXPECT_EQ(CountOf(SetPropertiesOf(d), "State"), 1);
    EXPECT_EQ(TextOf(d, "State"), "3");
}

TEST_P(ServerFamilies, LeaveAnAssociationOne) {
    TestMachine machine(Options(1));
    const Namespace nameSpace = OnNodes(machine);
    const Class link = GetClass(nameSpace, "S_Link");
    EXPECT_TRUE(link->IsAssociation(TContext()));
    EXPECT_FALSE(GetClass(nameSpace, "S_Fan")->IsAssociation(TContext()));
    Names referenced;
    link->EnumerateReferencedClasses(
        [&](const boost::shared_ptr<ICIMClass>& cimClass) {
            referenced.push_back(cimClass->GetName(TContext()));
            return true;
        },
        TContext());
    EXPECT_EQ(referenced, (Names{"S_Element", "S_Element"}));
    const auto antecedent = GetClass(nameSpace, "S_FanLink")->GetPropertyDecl("Antecedent", TContext());
    EXPECT_TRUE(antecedent->GetValue(TContext()).IsReference());
}

TEST_P(ServerFamilies, BindReferencesToTheNamespaceOfTheirClass) {
    TestMachine machine(Options(1));
    const Namespace nameSpace = OnNodes(machine);
    for (const char* name : {"S_Link", "S_FanLink"}) {
        for (const char* property : {"Antecedent", "Dependent"}) {
            const TCIMReference reference =
                ValueOf(InstancesOf(GetClass(nameSpace, name)).at(0), property).operator TCIMReference();
            EXPECT_EQ(reference.GetNamespace(), nameSpace) << name << '.' << property;
        }
    }
}

TEST_P(ServerFamilies, GiveTheSameClassTree) {
    TestMachine machine(Options(1));
    const Namespace nameSpace = OnNodes(machine);
    const Class fan = GetClass(nameSpace, "S_Fan");
    const Class pump = GetClass(nameSpace, "S_Pump");
    const Class device = GetClass(nameSpace, "S_Device");
    const Class element = GetClass(nameSpace, "S_Element");
    EXPECT_EQ(fan->GetSuperClass(TContext()), device);
    EXPECT_EQ(device->GetSuperClass(TContext()), element);
    EXPECT_EQ(element->GetSuperClass(TContext())->GetName(TContext()), "<root>");
    EXPECT_EQ(SubclassesOf(*element), Names{"S_Device"});
    EXPECT_EQ(SubclassesOf(*element, true), (Names{"S_Device", "S_Fan", "S_Pump"}));
    EXPECT_TRUE(fan->IsSubclassOf(element, TContext()));
    EXPECT_FALSE(element->IsSubclassOf(fan, TContext()));
    EXPECT_FALSE(fan->IsSubclassOf(pump, TContext()));
    EXPECT_TRUE(GetClass(nameSpace, "S_FanLink")->IsSubclassOf(GetClass(nameSpace, "S_Link"), TContext()));
}

TEST_P(ServerFamilies, LetAnInstanceBeFoundByItsPath) {
    TestMachine machine(Options(1));
    const Namespace nameSpace = OnNodes(machine);
    const auto found = nameSpace->GetInstance(Reference("S_Fan.Id=\"f\",Zone=7"), TContext());
    ASSERT_TRUE(found);
    EXPECT_EQ(TextOf(found, "Speed"), "3000");
    EXPECT_FALSE(nameSpace->GetInstance(Reference("S_Fan.Id=\"p\",Zone=7"), TContext()));
}

TEST_P(ServerFamilies, AnswerWithTheSamePathsFromTwoNodes) {
    TestMachine machine(Options(2));
    Declare(machine, {ClassXml("S_Top", "", KeyXml("InstanceID", "string")),
                      ClassXml("S_Leaf", "S_Top", PropertyXml("Speed", "uint64")),
                      InstanceXml("S_Leaf", PropertyXml("InstanceID", "string", "a") +
                                                PropertyXml("Speed", "uint64", "1"))});
    const Instances instances = InstancesOf(GetClass(Connected(machine), "S_Leaf"));
    EXPECT_EQ(PathsOf(instances), (Names{"S_Leaf.InstanceID=\"Node1:a\"", "S_Leaf.InstanceID=\"Node2:a\""}));
    EXPECT_EQ(TextsOf(instances, "NodeID"), (Names{"1", "2"}));
}

TEST_P(ServerFamilies, CauseNoComplaint) {
    TestMachine machine(Options(1));
    const Namespace nameSpace = OnNodes(machine);
    for (const char* name : {"S_Fan", "S_Pump", "S_Link", "S_FanLink"}) {
        InstancesOf(GetClass(nameSpace, name));
    }
    for (const auto& [level, text] : log_.Lines()) {
        EXPECT_NE(level, 0) << text;
        EXPECT_EQ(text.find("Unable to retrieve"), std::string::npos) << text;
    }
}

// A class knows its own qualifiers only, so what it inherits counts where the server repeats it.
TEST_P(ServerFamilies, MakeAnInheritedAssociationOneWhereTheyRepeatTheQualifier) {
    TestMachine machine(Options(1));
    const Namespace nameSpace = OnNodes(machine);
    EXPECT_EQ(GetClass(nameSpace, "S_FanLink")->IsAssociation(TContext()), GetParam().localOnly.flatClasses);
}

TEST_P(ServerFamilies, GiveKeysOfEveryTypeTheSamePath) {
    TestMachine machine(Options(1));
    const std::vector<std::pair<const char*, const char*>> keys{{"boolean", "TRUE"},
                                                                {"sint8", "-5"},
                                                                {"uint64", "18446744073709551615"},
                                                                {"string", "a \\&quot;b&quot;"},
                                                                {"datetime", "20240229235959.999999+060"},
                                                                {"char16", "A"},
                                                                {"sint64", "-9223372036854775808"}};
    std::string members;
    std::string values;
    for (const auto& [type, value] : keys) {
        members += KeyXml(std::string("K") + type, type);
        values += PropertyXml(std::string("K") + type, type, value);
    }
    Declare(machine,
            {ClassXml("S_Top", "", members), ClassXml("S_Leaf", "S_Top"), InstanceXml("S_Leaf", values)});
    const std::string path =
        R"(S_Leaf.Kboolean=TRUE,Kchar16="A",Kdatetime="20240229235959.999999+060",)"
        R"(Ksint64=-9223372036854775808,Ksint8=-5,Kstring="a \\\"b\"",Kuint64=18446744073709551615)";
    EXPECT_EQ(PathsOf(InstancesOf(GetClass(Connected(machine), "S_Leaf"))), Names{path});
}

TEST_P(ServerFamilies, GiveEveryKeyItsDeclaredType) {
    TestMachine machine(Options(1));
    const Namespace nameSpace = OnNodes(machine);
    const Instance fan = OnlyInstance(nameSpace, "S_Fan");
    EXPECT_EQ(ValueOf(fan, "Id").GetType(), TCIMValue::TCIMType::eString);
    EXPECT_EQ(ValueOf(fan, "Zone").GetType(), TCIMValue::TCIMType::eUint8);
}

TEST_P(ServerFamilies, TellTheClassThatAReferenceKeyPointsAt) {
    TestMachine machine(Options(1));
    const Namespace nameSpace = OnNodes(machine);
    for (const char* name : {"S_Link", "S_FanLink"}) {
        const Instance link = InstancesOf(GetClass(nameSpace, name)).at(0);
        const auto pointsAt = [&](const char* property) {
            const auto referenced = ValueOf(link, property).GetReferencedClass();
            return referenced ? referenced->GetName(TContext()) : std::string("(none)");
        };
        EXPECT_EQ(pointsAt("Antecedent"), "S_Fan") << name;
        EXPECT_EQ(pointsAt("Dependent"), "S_Pump") << name;
    }
}

TEST_P(ServerFamilies, GiveARealKeyTheSamePath) {
    TestMachine machine(Options(1));
    Declare(machine, {ClassXml("S_Top", "", KeyXml("Level", "real64")), ClassXml("S_Leaf", "S_Top"),
                      InstanceXml("S_Leaf", PropertyXml("Level", "real64", "1.5")),
                      InstanceXml("S_Leaf", PropertyXml("Level", "real64", "-2.5"))});
    EXPECT_EQ(PathsOf(InstancesOf(GetClass(Connected(machine), "S_Leaf"))),
              (Names{"S_Leaf.Level=-2.5", "S_Leaf.Level=1.5"}));
}

INSTANTIATE_TEST_SUITE_P(LocalOnly, ServerFamilies,
                         ::testing::Values(Family{"HonouredOnClasses", {false, false}},
                                           Family{"IgnoredOnClasses", {true, false}},
                                           Family{"HonouredOnInstancesToo", {false, true}},
                                           Family{"IgnoredOnClassesHonouredOnInstances", {true, true}}),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace NQELVSK20
