#include "cimom/data/SampleMachine.h"

#include <gtest/gtest.h>

#include <regex>
#include <set>

#include "cimom/common/CimType.h"
#include "cimom/common/Xml.h"
#include "tests/cimom/support/SampleNameSpace.h"
#include "tests/cimom/support/SmallNameSpace.h"

namespace cimom {
namespace {

using test::SampleNameSpace;

std::size_t countOf(SampleNameSpace& space, const char* className) {
    return space->instances.ofClassAndBelow(*space->classes.find(className)).size();
}

std::set<std::string> keysOf(SampleNameSpace& space, const char* className) {
    std::set<std::string> keys;
    for (const Instance* instance : space->instances.ofClassAndBelow(*space->classes.find(className))) {
        keys.insert(instance->path().canonical());
    }
    return keys;
}

/// Every property element of every instance of the namespace, under one root.
void readAllInstances(SampleNameSpace& space, pugi::xml_document& document) {
    std::string xml = "<All>";
    for (const ClassView* top : space->classes.subclasses(nullptr, false)) {
        for (const Instance* instance : space->instances.ofClassAndBelow(*top)) {
            xml += instance->plainXml();
        }
    }
    ASSERT_FALSE(parseXml(xml + "</All>", document));
}

class EveryNode : public testing::TestWithParam<unsigned> {};

TEST_P(EveryNode, HasTheChainDownToItsComputerSystem) {
    SampleNameSpace space(GetParam());
    std::string chain;
    for (const ClassView* view = space->classes.find("OMC_UnitaryComputerSystem"); view;
         view = view->superClass) {
        chain += view->name + " ";
    }
    EXPECT_EQ(chain,
              "OMC_UnitaryComputerSystem CIM_UnitaryComputerSystem CIM_ComputerSystem CIM_System "
              "CIM_EnabledLogicalElement CIM_LogicalElement CIM_ManagedSystemElement CIM_ManagedElement ");
    EXPECT_EQ(countOf(space, "OMC_UnitaryComputerSystem"), 1U);
}

TEST_P(EveryNode, DeclaresEveryQualifierThatItUses) {
    SampleNameSpace space(GetParam());
    std::set<std::string> unknown;
    for (const ClassView* view : space->classes.subclasses(nullptr, true)) {
        for (const auto& qualifier : view->element.select_nodes(".//QUALIFIER")) {
            const char* name = qualifier.node().attribute("NAME").value();
            if (!space->qualifiers.find(name)) {
                unknown.insert(name);
            }
        }
    }
    EXPECT_EQ(unknown, std::set<std::string>());
}

TEST_P(EveryNode, HasOnlyValuesThatTheirTypesCanHold) {
    SampleNameSpace space(GetParam());
    pugi::xml_document document;
    readAllInstances(space, document);
    std::size_t values = 0;
    for (const auto& found : document.select_nodes("/All/*//VALUE")) {
        pugi::xml_node property = found.node().parent();
        property = property.attribute("TYPE") ? property : property.parent();
        const std::string type = property.attribute("TYPE").value();
        EXPECT_TRUE(canonicalValue(type, textOf(found.node())))
            << property.attribute("NAME").value() << ": " << textOf(found.node());
        ++values;
    }
    EXPECT_GT(values, 500U);
}

TEST_P(EveryNode, WritesRealsAsStrictClientsReadThem) {
    // OpenPegasus takes a point with digits after it for granted, and no infinities.
    const std::regex real("[+-]?[0-9]*\\.[0-9]+([eE][+-]?[0-9]+)?");
    SampleNameSpace space(GetParam());
    pugi::xml_document document;
    readAllInstances(space, document);
    std::size_t reals = 0;
    for (const auto& found : document.select_nodes("//*[starts-with(@TYPE,'real')]//VALUE")) {
        EXPECT_TRUE(std::regex_match(textOf(found.node()), real)) << textOf(found.node());
        ++reals;
    }
    EXPECT_GT(reals, 10U);
}

TEST_P(EveryNode, GivesEachInstancePropertyTheTypeOfItsClass) {
    SampleNameSpace space(GetParam());
    for (const ClassView* top : space->classes.subclasses(nullptr, false)) {
        for (const Instance* instance : space->instances.ofClassAndBelow(*top)) {
            pugi::xml_document document;
            ASSERT_FALSE(parseXml("<I>" + std::string(instance->plainXml()) + "</I>", document));
            for (const pugi::xml_node property : document.child("I").children()) {
                const MemberView& member = instance->type().properties.at(static_cast<std::size_t>(
                    instance->type().findProperty(property.attribute("NAME").value())));
                EXPECT_STREQ(property.name(), member.element.name()) << member.name;
                EXPECT_STREQ(property.attribute("TYPE").value(), member.element.attribute("TYPE").value())
                    << member.name;
            }
        }
    }
}

TEST_P(EveryNode, RefersOnlyToInstancesOfItsOwn) {
    SampleNameSpace space(GetParam());
    pugi::xml_document document;
    readAllInstances(space, document);
    std::size_t references = 0;
    for (const auto& found : document.select_nodes("//VALUE.REFERENCE")) {
        EXPECT_NE(space->instances.find(readObjectPath(firstElement(found.node()))), nullptr)
            << test::xmlOf(found.node());
        ++references;
    }
    EXPECT_GT(references, 5U);
}

TEST_P(EveryNode, EmbedsObjectsThatAreXml) {
    SampleNameSpace space(GetParam());
    pugi::xml_document document;
    readAllInstances(space, document);
    std::size_t embedded = 0;
    for (const auto& found : document.select_nodes("//PROPERTY[@EmbeddedObject='instance']/VALUE")) {
        pugi::xml_document inner;
        EXPECT_FALSE(parseXml(textOf(found.node()), inner));
        EXPECT_STREQ(inner.first_child().name(), "INSTANCE");
        ++embedded;
    }
    EXPECT_EQ(embedded, 2U);
}

TEST_P(EveryNode, AnswersEveryOperationOnEveryClassWithXml) {
    SampleNameSpace space(GetParam());
    for (const ClassView* view : space->classes.subclasses(nullptr, true)) {
        const test::Arguments arguments{{"ClassName", test::classNameXml(view->name)},
                                        {"LocalOnly", test::valueXml("FALSE")}};
        EXPECT_TRUE(space.run("GetClass", arguments).child("CLASS"));
        space.run("EnumerateInstances", arguments);
    }
}

INSTANTIATE_TEST_SUITE_P(SampleMachine, EveryNode, testing::Values(0U, 1U, 2U, 3U, 7U));

TEST(SampleMachine, HasNodesThatDiffer) {
    SampleNameSpace zero(0);
    SampleNameSpace one(1);
    SampleNameSpace two(2);
    EXPECT_EQ(countOf(zero, "OMC_NumericSensor"), 13U);
    EXPECT_EQ(countOf(one, "OMC_NumericSensor"), 9U);
    EXPECT_EQ(countOf(two, "OMC_NumericSensor"), 7U);
    EXPECT_NE(zero.valueOf("OMC_NumericSensor", 0, "CurrentReading"),
              one.valueOf("OMC_NumericSensor", 0, "CurrentReading"));
}

TEST(SampleMachine, DefinesAClassDifferentlyOnEveryNode) {
    const auto has = [](unsigned node, const char* property) {
        SampleNameSpace space(node);
        return space->classes.find("OMC_Processor")->findProperty(property) >= 0;
    };
    EXPECT_TRUE(has(0, "TemperatureMargin"));
    EXPECT_FALSE(has(1, "TemperatureMargin"));
    EXPECT_TRUE(has(2, "TemperatureMargin"));
    EXPECT_FALSE(has(0, "ThrottleCount"));
    EXPECT_TRUE(has(2, "ThrottleCount"));
}

TEST(SampleMachine, HasAClassOnOneNodeOnly) {
    EXPECT_EQ(SampleNameSpace(0)->classes.find("OMC_LiquidCoolingLoop"), nullptr);
    EXPECT_EQ(SampleNameSpace(1)->classes.find("OMC_LiquidCoolingLoop"), nullptr);
    EXPECT_NE(SampleNameSpace(2)->classes.find("OMC_LiquidCoolingLoop"), nullptr);
}

TEST(SampleMachine, SharesLogIdentifiersBetweenNodes) {
    SampleNameSpace zero(0);
    SampleNameSpace one(1);
    const auto ofZero = keysOf(zero, "QEL_StandardMessageLogEntry");
    const auto ofOne = keysOf(one, "QEL_StandardMessageLogEntry");
    std::size_t shared = 0;
    for (const std::string& key : ofOne) {
        shared += ofZero.count(key);
    }
    EXPECT_EQ(shared, 3U);
    EXPECT_EQ(ofOne.size(), 4U);
}

TEST(SampleMachine, HasLocalForeignAndUndecidedLogEntries) {
    SampleNameSpace space(0);
    EXPECT_EQ(space.valueOf("QEL_StandardMessageLogEntry", 0, "IsLocalEvent"), "TRUE");
    EXPECT_EQ(space.valueOf("QEL_StandardMessageLogEntry", 1, "IsLocalEvent"), "FALSE");
    EXPECT_EQ(space.valueOf("QEL_StandardMessageLogEntry", 2, "IsLocalEvent"), "");
}

TEST(SampleMachine, HasAProcessorSlotWithANumberBeyond16Bits) {
    SampleNameSpace space(0);
    EXPECT_EQ(space.valueOf("OMC_ProcessorSlot", 2, "Number"), "70000");
}

TEST(SampleMachine, MakesFurtherNodesWithNamesOfTheirOwn) {
    SampleNameSpace five(5);
    SampleNameSpace two(2);
    EXPECT_EQ(five.valueOf("OMC_UnitaryComputerSystem", 0, "Name"), "node-5.machine.example");
    EXPECT_EQ(five.valueOf("OMC_UnitaryComputerSystem", 0, "SerialNumber"), "OMC7730-N5");
    EXPECT_EQ(five.valueOf("OMC_UnitaryComputerSystem", 0, "NodeNumber"), "5");
    EXPECT_NE(five.valueOf("OMC_NumericSensor", 0, "CurrentReading"),
              two.valueOf("OMC_NumericSensor", 0, "CurrentReading"));
}

}  // namespace
}  // namespace cimom
