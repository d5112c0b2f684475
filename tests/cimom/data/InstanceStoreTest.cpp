#include "cimom/data/InstanceStore.h"

#include <gtest/gtest.h>

#include <set>
#include <stdexcept>

#include "tests/cimom/support/SmallNameSpace.h"

namespace cimom {
namespace {

using test::object;

std::string idsOf(test::SmallNameSpace& space, const char* className) {
    std::string ids;
    for (const Instance* instance : space->instances.ofClassAndBelow(*space->classes.find(className))) {
        ids.append(ids.empty() ? "" : ",").append(instance->path().keys[0].value);
    }
    return ids;
}

void multiply(test::SmallNameSpace& space, const char* className, std::size_t count) {
    space->instances.multiply(*space->classes.find(className), count);
}

std::string other(const std::string& number) {
    return object("<INSTANCE CLASSNAME=\"Other\"><PROPERTY NAME=\"Number\" TYPE=\"uint32\"><VALUE>" + number +
                  "</VALUE></PROPERTY></INSTANCE>");
}

TEST(InstanceStore, ListsInstancesOfSubclassesTooInOrderOfDeclaration) {
    test::SmallNameSpace space;
    EXPECT_EQ(idsOf(space, "Base"), "a,m,b");
    EXPECT_EQ(idsOf(space, "Leaf"), "a,b");
    EXPECT_EQ(idsOf(space, "Other"), "");
}

TEST(InstanceStore, ReplacesAnInstanceOfTheSamePathInPlace) {
    test::SmallNameSpace space;
    space.add(object(
        "<INSTANCE CLASSNAME=\"leaf\"><PROPERTY NAME=\"Id\" TYPE=\"string\"><VALUE>a</VALUE></PROPERTY>"
        "</INSTANCE>"));
    EXPECT_EQ(idsOf(space, "Base"), "a,m,b");
    EXPECT_EQ(space->instances.ofClassAndBelow(*space->classes.find("Leaf"))[0]->propertyCount(), 1U);
}

TEST(InstanceStore, RepeatsInstancesInTurnWithKeysOfTheirOwn) {
    test::SmallNameSpace space;
    multiply(space, "Leaf", 5);
    EXPECT_EQ(idsOf(space, "Base"), "a,m,b,a #2,b #3,a #4");
}

TEST(InstanceStore, ReachesTheNumberAskedForWhenMultipliedAgain) {
    test::SmallNameSpace space;
    multiply(space, "Leaf", 5);
    multiply(space, "Leaf", 50);
    std::set<std::string> paths;
    for (const Instance* instance : space->instances.ofClassAndBelow(*space->classes.find("Leaf"))) {
        paths.insert(instance->path().canonical());
    }
    EXPECT_EQ(paths.size(), 50U);
}

TEST(InstanceStore, KeepsTheFirstWhenFewerAreAskedFor) {
    test::SmallNameSpace space;
    multiply(space, "Leaf", 1);
    EXPECT_EQ(idsOf(space, "Base"), "a,m");
    ObjectPath gone;
    gone.className = "Leaf";
    gone.isInstance = true;
    gone.keys.push_back({"Id", KeyBinding::Kind::String, "b", "b"});
    EXPECT_EQ(space->instances.find(gone), nullptr);
    multiply(space, "Leaf", 0);
    EXPECT_EQ(idsOf(space, "Base"), "m");
}

TEST(InstanceStore, CountsNumericKeysOnwards) {
    test::SmallNameSpace space;
    space.add(other("1") + other("2"));
    multiply(space, "Other", 4);
    EXPECT_EQ(idsOf(space, "Other"), "1,2,3,4");
}

TEST(InstanceStore, ChangesTheKeyThatTellsTheInstancesApart) {
    test::SmallNameSpace space;
    const auto pair = [](const char* one, const char* two) {
        return object(std::string("<INSTANCE CLASSNAME=\"Pair\"><PROPERTY NAME=\"One\"><VALUE>") + one +
                      "</VALUE></PROPERTY><PROPERTY NAME=\"Two\"><VALUE>" + two +
                      "</VALUE></PROPERTY></INSTANCE>");
    };
    const auto key = [](const char* name) {
        return std::string("<PROPERTY NAME=\"") + name +
               "\" TYPE=\"string\"><QUALIFIER NAME=\"Key\" TYPE=\"boolean\"/></PROPERTY>";
    };
    space.add(object("<CLASS NAME=\"Pair\">" + key("One") + key("Two") + "</CLASS>") + pair("a", "same") +
              pair("b", "same"));
    multiply(space, "Pair", 3);
    EXPECT_EQ(idsOf(space, "Pair"), "a,b,a #2");
}

TEST(InstanceStore, CannotRepeatWhatIsNotThereOrHasNoKeyToChange) {
    test::SmallNameSpace space;
    EXPECT_THROW(multiply(space, "Other", 3), std::runtime_error);
    space.add(
        object("<CLASS NAME=\"Flag\"><PROPERTY NAME=\"On\" TYPE=\"boolean\"><QUALIFIER NAME=\"Key\" "
               "TYPE=\"boolean\"/></PROPERTY></CLASS>") +
        object(
            "<INSTANCE CLASSNAME=\"Flag\"><PROPERTY NAME=\"On\"><VALUE>TRUE</VALUE></PROPERTY></INSTANCE>"));
    EXPECT_THROW(multiply(space, "Flag", 2), std::runtime_error);
}

TEST(InstanceStore, RefusesMoreInstancesThanAKeyCanNumber) {
    test::SmallNameSpace space;
    space.add(
        object("<CLASS NAME=\"Tiny\"><PROPERTY NAME=\"N\" TYPE=\"uint8\"><QUALIFIER NAME=\"Key\" "
               "TYPE=\"boolean\"/></PROPERTY></CLASS>") +
        object("<INSTANCE CLASSNAME=\"Tiny\"><PROPERTY NAME=\"N\"><VALUE>0</VALUE></PROPERTY></INSTANCE>"));
    multiply(space, "Tiny", 256);
    EXPECT_EQ(space->instances.ofClassAndBelow(*space->classes.find("Tiny")).size(), 256U);
    EXPECT_THROW(multiply(space, "Tiny", 257), std::runtime_error);
}

TEST(InstanceStore, KeepsInstancesRightWhenTheirClassIsRedeclared) {
    test::SmallNameSpace space;
    space.add(
        object("<CLASS NAME=\"Base\"><PROPERTY NAME=\"First\" TYPE=\"string\"/><PROPERTY NAME=\"Id\" "
               "TYPE=\"string\"><QUALIFIER NAME=\"Key\" TYPE=\"boolean\"/></PROPERTY><PROPERTY "
               "NAME=\"Caption\" TYPE=\"string\"/></CLASS>"));
    const Instance* leaf = space->instances.ofClassAndBelow(*space->classes.find("Leaf"))[0];
    EXPECT_EQ(leaf->type().properties[leaf->memberOf(0)].name, "Id");
    EXPECT_EQ(leaf->valueOf("Caption"), "First & best");
}

TEST(InstanceStore, RefusesARedeclarationThatTakesAwayAPropertyInUse) {
    test::SmallNameSpace space;
    EXPECT_THROW(space.add(object("<CLASS NAME=\"Middle\" SUPERCLASS=\"Base\"/>")), std::runtime_error);
}

}  // namespace
}  // namespace cimom
