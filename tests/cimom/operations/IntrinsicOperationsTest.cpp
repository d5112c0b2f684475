#include "cimom/operations/IntrinsicOperations.h"

#include <gtest/gtest.h>

#include "cimom/common/Xml.h"
#include "tests/cimom/support/SmallNameSpace.h"
#include "tests/cimom/support/StatusCodes.h"

namespace cimom {
namespace {

using test::arrayXml;
using test::attributesOf;
using test::classNameXml;
using test::errorOf;
using test::kInvalidClass;
using test::kInvalidParameter;
using test::kNoSuchProperty;
using test::kNotFound;
using test::kNotSupported;
using test::named;
using test::smallPath;
using test::valueXml;
using test::xmlOf;

class IntrinsicOperationsTest : public testing::Test {
protected:
    int errorOfRun(const std::string& operation, const test::Arguments& arguments) {
        return errorOf([&] { space_.run(operation, arguments); });
    }

    /// Ids of the instances of an answer, in order.
    static std::string idsOf(pugi::xml_node result) {
        std::string ids;
        for (pugi::xml_node child = firstElement(result); child; child = nextElement(child)) {
            const auto name =
                std::string_view(child.name()) == "INSTANCENAME" ? child : child.child("INSTANCENAME");
            ids += name.child("KEYBINDING").child_value("KEYVALUE");
        }
        return ids;
    }

    test::SmallNameSpace space_;
};

TEST_F(IntrinsicOperationsTest, GetClassReturnsTheLocalClassWithQualifiersByDefault) {
    const auto middle = space_.run("GetClass", {{"ClassName", classNameXml("middle")}}).child("CLASS");
    EXPECT_EQ(attributesOf(middle, "NAME"), "Level Size Touch");
    EXPECT_TRUE(named(named(middle, "Level"), "Description"));
    EXPECT_FALSE(named(middle, "Level").attribute("CLASSORIGIN"));
}

TEST_F(IntrinsicOperationsTest, GetClassHonoursEveryOption) {
    const auto middle = space_
                            .run("GetClass", {{"ClassName", classNameXml("Middle")},
                                              {"LocalOnly", valueXml("FALSE")},
                                              {"IncludeQualifiers", valueXml("FALSE")},
                                              {"IncludeClassOrigin", valueXml("TRUE")},
                                              {"PropertyList", arrayXml({"ID", "Size"})}})
                            .child("CLASS");
    EXPECT_EQ(attributesOf(middle, "NAME"), "Id Size Reset Touch");
    EXPECT_EQ(attributesOf(middle, "CLASSORIGIN"), "Base Middle Base Middle");
}

TEST_F(IntrinsicOperationsTest, GetClassOfAnUnknownClassIsNotFound) {
    EXPECT_EQ(errorOfRun("GetClass", {{"ClassName", classNameXml("Nothing")}}), kNotFound);
    EXPECT_EQ(errorOfRun("GetClass", {}), kInvalidParameter);
}

TEST_F(IntrinsicOperationsTest, EnumerateClassNamesStartsAtTheTopOrBelowAClass) {
    EXPECT_EQ(attributesOf(space_.run("EnumerateClassNames", {}), "NAME"), "Base Other");
    EXPECT_EQ(
        attributesOf(space_.run("EnumerateClassNames", {{"DeepInheritance", valueXml("TRUE")}}), "NAME"),
        "Base Middle Leaf Other");
    EXPECT_EQ(attributesOf(space_.run("EnumerateClassNames", {{"ClassName", classNameXml("Base")}}), "NAME"),
              "Middle");
    EXPECT_EQ(attributesOf(space_.run("EnumerateClassNames", {{"ClassName", classNameXml("Leaf")}}), "NAME"),
              "");
    EXPECT_EQ(errorOfRun("EnumerateClassNames", {{"ClassName", classNameXml("Nothing")}}), kInvalidClass);
}

TEST_F(IntrinsicOperationsTest, EnumerateClassesReturnsClassesAsGetClassDoes) {
    const auto classes = space_.run("EnumerateClasses", {{"ClassName", classNameXml("Base")},
                                                         {"DeepInheritance", valueXml("TRUE")},
                                                         {"LocalOnly", valueXml("FALSE")},
                                                         {"IncludeQualifiers", valueXml("FALSE")}});
    EXPECT_EQ(attributesOf(classes, "NAME"), "Middle Leaf");
    EXPECT_EQ(attributesOf(named(classes, "Leaf"), "NAME"), "Id Caption Level Size Tags Parent Reset Touch");
    EXPECT_EQ(errorOfRun("EnumerateClasses", {{"ClassName", classNameXml("Nothing")}}), kInvalidClass);
}

TEST_F(IntrinsicOperationsTest, EnumerateClassesIncludesQualifiersAndOnlyLocalMembersByDefault) {
    const auto base = named(space_.run("EnumerateClasses", {}), "Base");
    EXPECT_EQ(attributesOf(base, "NAME"), "Version Description Id Caption Level Reset");
}

TEST_F(IntrinsicOperationsTest, GetInstanceFindsByKeysInAnySpelling) {
    EXPECT_TRUE(space_.run("GetInstance", {{"InstanceName", smallPath("leaf", "a")}}).child("INSTANCE"));
    EXPECT_TRUE(space_
                    .run("GetInstance", {{"InstanceName",
                                          "<INSTANCENAME CLASSNAME=\"Leaf\"><KEYVALUE>a</KEYVALUE>"
                                          "</INSTANCENAME>"}})
                    .child("INSTANCE"))
        << "unnamed single key";
}

TEST_F(IntrinsicOperationsTest, GetInstanceReturnsOwnPropertiesByDefault) {
    const auto instance =
        space_.run("GetInstance", {{"InstanceName", smallPath("Leaf", "a")}}).child("INSTANCE");
    EXPECT_EQ(attributesOf(instance, "NAME"), "Id Caption Size Parent");
}

TEST_F(IntrinsicOperationsTest, GetInstanceHonoursEveryOption) {
    const auto instance = space_
                              .run("GetInstance", {{"InstanceName", smallPath("Leaf", "a")},
                                                   {"LocalOnly", valueXml("FALSE")},
                                                   {"IncludeQualifiers", valueXml("TRUE")},
                                                   {"IncludeClassOrigin", valueXml("TRUE")},
                                                   {"PropertyList", arrayXml({"Id", "Level"})}})
                              .child("INSTANCE");
    EXPECT_EQ(attributesOf(instance, "NAME"), "Id Level");
    EXPECT_EQ(attributesOf(instance, "CLASSORIGIN"), "Base Base");
    EXPECT_TRUE(named(named(instance, "Id"), "Key"));
}

TEST_F(IntrinsicOperationsTest, GetInstanceTellsAMissingInstanceFromAMissingClass) {
    EXPECT_EQ(errorOfRun("GetInstance", {{"InstanceName", smallPath("Leaf", "z")}}), kNotFound);
    EXPECT_EQ(errorOfRun("GetInstance", {{"InstanceName", smallPath("Nothing", "a")}}), kInvalidClass);
    EXPECT_EQ(errorOfRun("GetInstance", {}), kInvalidParameter);
}

TEST_F(IntrinsicOperationsTest, EnumerateInstancesReturnsSubclassesWithAllTheirProperties) {
    const auto result = space_.run("EnumerateInstances", {{"ClassName", classNameXml("Base")}});
    EXPECT_EQ(idsOf(result), "amb");
    EXPECT_EQ(attributesOf(result.child("VALUE.NAMEDINSTANCE").child("INSTANCE"), "NAME"),
              "Id Caption Size Parent");
}

TEST_F(IntrinsicOperationsTest, EnumerateInstancesLimitsPropertiesWhenNotDeep) {
    const auto result = space_.run("EnumerateInstances", {{"ClassName", classNameXml("Base")},
                                                          {"DeepInheritance", valueXml("FALSE")},
                                                          {"LocalOnly", valueXml("FALSE")}});
    EXPECT_EQ(idsOf(result), "amb");
    const auto leaf = result.child("VALUE.NAMEDINSTANCE").child("INSTANCE");
    EXPECT_STREQ(leaf.attribute("CLASSNAME").value(), "Leaf");
    EXPECT_EQ(attributesOf(leaf, "NAME"), "Id Caption Level");
}

TEST_F(IntrinsicOperationsTest, EnumerateInstancesReturnsANullThatTheInstanceHolds) {
    const auto result = space_.run("EnumerateInstances", {{"ClassName", classNameXml("Middle")}});
    const auto middle = firstElement(result).next_sibling().child("INSTANCE");
    EXPECT_EQ(xmlOf(named(middle, "Level")), "<PROPERTY NAME=\"Level\" TYPE=\"uint16\"></PROPERTY>");
}

TEST_F(IntrinsicOperationsTest, EnumerateInstancesOfAnUnknownClassIsInvalidClass) {
    EXPECT_EQ(errorOfRun("EnumerateInstances", {{"ClassName", classNameXml("Nothing")}}), kInvalidClass);
    EXPECT_EQ(errorOfRun("EnumerateInstanceNames", {{"ClassName", classNameXml("Nothing")}}), kInvalidClass);
    EXPECT_EQ(errorOfRun("EnumerateInstances", {}), kInvalidParameter);
}

TEST_F(IntrinsicOperationsTest, EnumerateInstanceNamesReturnsPathsInOrder) {
    EXPECT_EQ(idsOf(space_.run("EnumerateInstanceNames", {{"ClassName", classNameXml("base")}})), "amb");
    EXPECT_EQ(errorOfRun("EnumerateInstanceNames",
                         {{"ClassName", classNameXml("Base")}, {"LocalOnly", valueXml("TRUE")}}),
              kInvalidParameter);
}

TEST_F(IntrinsicOperationsTest, GetPropertyReturnsValueOrDefault) {
    const auto get = [&](const char* property) {
        return xmlOf(space_.run(
            "GetProperty", {{"InstanceName", smallPath("Leaf", "a")}, {"PropertyName", valueXml(property)}}));
    };
    EXPECT_EQ(get("SIZE"), "<Result><VALUE>-5</VALUE></Result>");
    EXPECT_EQ(get("Tags"), "<Result><VALUE.ARRAY><VALUE>t</VALUE></VALUE.ARRAY></Result>");
    EXPECT_EQ(errorOf([&] { get("Nothing"); }), kNoSuchProperty);
}

TEST_F(IntrinsicOperationsTest, ReturnsQualifierDeclarations) {
    EXPECT_EQ(attributesOf(space_.run("EnumerateQualifiers", {}), "NAME"), "Key Version Description");
    EXPECT_STREQ(space_.run("GetQualifier", {{"QualifierName", valueXml("key")}}).first_child().name(),
                 "QUALIFIER.DECLARATION");
    EXPECT_EQ(errorOfRun("GetQualifier", {{"QualifierName", valueXml("Nothing")}}), kNotFound);
}

TEST_F(IntrinsicOperationsTest, DoesNotSupportOtherOperations) {
    for (const char* operation : {"EnumerationCount", "GetNamespaces", "ExecuteQuery", "Nonsense"}) {
        EXPECT_EQ(errorOfRun(operation, {}), kNotSupported) << operation;
    }
}

}  // namespace
}  // namespace cimom
