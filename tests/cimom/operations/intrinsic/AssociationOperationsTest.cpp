#include "cimom/operations/intrinsic/AssociationOperations.h"

#include <gtest/gtest.h>

#include "cimom/common/Xml.h"
#include "tests/cimom/support/SmallAssociations.h"
#include "tests/cimom/support/SmallNameSpace.h"
#include "tests/cimom/support/StatusCodes.h"

namespace cimom {
namespace {

using test::classNameXml;
using test::errorOf;
using test::named;
using test::objectsOf;
using test::smallPath;
using test::valueXml;
using test::xmlOf;

class AssociationOperationsTest : public testing::Test {
protected:
    AssociationOperationsTest() { space_.add(test::kSmallAssociations); }

    /// What the operation finds for an object, by name and whole, which has to be the same.
    std::string find(const std::string& operation, const std::string& object,
                     test::Arguments arguments = {}) {
        arguments.insert(arguments.begin(), {"ObjectName", object});
        const std::string names = objectsOf(space_.run(operation + "Names", arguments));
        const bool plural = operation == "Associator" || operation == "Reference";
        EXPECT_EQ(objectsOf(space_.run(operation + (plural ? "s" : ""), arguments)), names);
        return names;
    }

    int errorOfRun(const std::string& operation, const test::Arguments& arguments) {
        return errorOf([&] { space_.run(operation, arguments); });
    }

    test::SmallNameSpace space_;
};

TEST_F(AssociationOperationsTest, FindsWhatIsAtTheOtherEndsOfAnInstance) {
    EXPECT_EQ(find("Associator", smallPath("Middle", "m")), "a b");
    EXPECT_EQ(find("Associator", smallPath("Leaf", "a")), "m b");
    EXPECT_EQ(find("Associator", smallPath("leaf", "b")), "m a");
}

TEST_F(AssociationOperationsTest, FindsTheAssociationsOfAnInstance) {
    EXPECT_EQ(find("Reference", smallPath("Middle", "m")), "am zm bm");
    EXPECT_EQ(find("Reference", smallPath("Leaf", "b")), "bm ba");
}

TEST_F(AssociationOperationsTest, TakesNoPropertyOfAnOrdinaryClassForAnAssociation) {
    EXPECT_EQ(find("Reference", smallPath("Middle", "m"), {{"Role", valueXml("Parent")}}), "")
        << "the reference of a Leaf";
}

TEST_F(AssociationOperationsTest, FollowsOnlyTheAssociationsAskedFor) {
    EXPECT_EQ(find("Associator", smallPath("Middle", "m"), {{"AssocClass", classNameXml("TightBond")}}), "b");
    EXPECT_EQ(find("Associator", smallPath("Middle", "m"), {{"AssocClass", classNameXml("bond")}}), "a b");
    EXPECT_EQ(find("Associator", smallPath("Middle", "m"), {{"AssocClass", classNameXml("Other")}}), "");
    EXPECT_EQ(find("Reference", smallPath("Middle", "m"), {{"ResultClass", classNameXml("TightBond")}}),
              "bm");
}

TEST_F(AssociationOperationsTest, FindsOnlyResultsOfTheClassAskedFor) {
    EXPECT_EQ(find("Associator", smallPath("Leaf", "a"), {{"ResultClass", classNameXml("Leaf")}}), "b");
    EXPECT_EQ(find("Associator", smallPath("Leaf", "a"), {{"ResultClass", classNameXml("Base")}}), "m b");
}

TEST_F(AssociationOperationsTest, FollowsOnlyTheRolesAskedFor) {
    EXPECT_EQ(find("Associator", smallPath("Leaf", "a"), {{"Role", valueXml("upper")}}), "b");
    EXPECT_EQ(find("Associator", smallPath("Leaf", "a"), {{"ResultRole", valueXml("Upper")}}), "m");
    EXPECT_EQ(find("Associator", smallPath("Leaf", "a"),
                   {{"ResultRole", valueXml("Upper")}, {"Role", valueXml("Upper")}}),
              "");
    EXPECT_EQ(find("Reference", smallPath("Leaf", "a"), {{"Role", valueXml("LOWER")}}), "am");
    EXPECT_EQ(find("Reference", smallPath("Leaf", "a"), {{"Role", valueXml("Sideways")}}), "");
}

TEST_F(AssociationOperationsTest, FindsClassesForAClass) {
    EXPECT_EQ(find("Reference", classNameXml("Base")), "Bond TightBond");
    EXPECT_EQ(find("Reference", classNameXml("Base"), {{"Role", valueXml("Lower")}}), "");
    EXPECT_EQ(find("Reference", classNameXml("Leaf"), {{"Role", valueXml("Lower")}}), "Bond TightBond");
    EXPECT_EQ(find("Reference", classNameXml("Other")), "");
    EXPECT_EQ(find("Associator", classNameXml("Base")), "Middle");
    EXPECT_EQ(find("Associator", classNameXml("Leaf")), "Middle Base");
    EXPECT_EQ(find("Associator", classNameXml("Leaf"), {{"ResultRole", valueXml("Upper")}}), "Base");
    EXPECT_EQ(find("Associator", classNameXml("Leaf"), {{"ResultClass", classNameXml("Middle")}}), "Middle");
    EXPECT_EQ(find("Reference", classNameXml("Leaf"), {{"ResultClass", classNameXml("TightBond")}}),
              "TightBond");
}

TEST_F(AssociationOperationsTest, SendsAnInstanceWithItsWholePathAndAllItHas) {
    const auto result = space_.run("Associators", {{"ObjectName", smallPath("Leaf", "b")},
                                                   {"ResultRole", valueXml("Upper")},
                                                   {"AssocClass", classNameXml("TightBond")},
                                                   {"ResultClass", classNameXml("Leaf")},
                                                   {"PropertyList", test::arrayXml({"Id", "Level"})},
                                                   {"IncludeClassOrigin", valueXml("TRUE")}});
    EXPECT_EQ(
        xmlOf(firstElement(result)),
        "<VALUE.OBJECTWITHPATH><INSTANCEPATH><NAMESPACEPATH><HOST>localhost</HOST><LOCALNAMESPACEPATH>"
        "<NAMESPACE NAME=\"root\"></NAMESPACE><NAMESPACE NAME=\"cimv2\"></NAMESPACE></LOCALNAMESPACEPATH>"
        "</NAMESPACEPATH><INSTANCENAME CLASSNAME=\"Leaf\"><KEYBINDING NAME=\"Id\">"
        "<KEYVALUE VALUETYPE=\"string\">a</KEYVALUE></KEYBINDING></INSTANCENAME></INSTANCEPATH>"
        "<INSTANCE CLASSNAME=\"Leaf\"><PROPERTY NAME=\"Id\" CLASSORIGIN=\"Base\" TYPE=\"string\">"
        "<VALUE>a</VALUE></PROPERTY><PROPERTY NAME=\"Level\" CLASSORIGIN=\"Base\" TYPE=\"uint16\">"
        "<VALUE>2</VALUE></PROPERTY></INSTANCE></VALUE.OBJECTWITHPATH>");
}

TEST_F(AssociationOperationsTest, SendsNamesAsObjectPaths) {
    EXPECT_EQ(
        xmlOf(firstElement(space_.run("ReferenceNames", {{"ObjectName", classNameXml("Base")}}))),
        "<OBJECTPATH><CLASSPATH><NAMESPACEPATH><HOST>localhost</HOST><LOCALNAMESPACEPATH>"
        "<NAMESPACE NAME=\"root\"></NAMESPACE><NAMESPACE NAME=\"cimv2\"></NAMESPACE></LOCALNAMESPACEPATH>"
        "</NAMESPACEPATH><CLASSNAME NAME=\"Bond\"></CLASSNAME></CLASSPATH></OBJECTPATH>");
}

TEST_F(AssociationOperationsTest, SendsQualifiersWhenAsked) {
    for (const char* include : {"TRUE", "FALSE"}) {
        const auto instance = space_
                                  .run("References", {{"ObjectName", smallPath("Leaf", "a")},
                                                      {"Role", valueXml("Lower")},
                                                      {"IncludeQualifiers", valueXml(include)}})
                                  .select_node("//INSTANCE")
                                  .node();
        EXPECT_EQ(!!named(named(instance, "Upper"), "Key"), *include == 'T');
        const auto view = space_
                              .run("References", {{"ObjectName", classNameXml("Leaf")},
                                                  {"IncludeQualifiers", valueXml(include)},
                                                  {"PropertyList", test::arrayXml({"Lower"})}})
                              .select_node("//CLASS[@NAME='TightBond']")
                              .node();
        EXPECT_EQ(!!named(view, "Association"), *include == 'T');
        EXPECT_TRUE(named(view, "Lower")) << "inherited, and sent all the same";
        EXPECT_FALSE(named(view, "Force"));
    }
}

std::string bondFromElsewhere(const std::string& upper, const std::string& lower) {
    return test::object(
        "<INSTANCE CLASSNAME=\"Bond\"><PROPERTY.REFERENCE NAME=\"Upper\"><VALUE.REFERENCE><LOCALINSTANCEPATH>"
        "<LOCALNAMESPACEPATH><NAMESPACE NAME=\"interop\"/></LOCALNAMESPACEPATH>" +
        smallPath("Leaf", upper) +
        "</LOCALINSTANCEPATH></VALUE.REFERENCE></PROPERTY.REFERENCE><PROPERTY.REFERENCE NAME=\"Lower\">"
        "<VALUE.REFERENCE>" +
        smallPath("Leaf", lower) + "</VALUE.REFERENCE></PROPERTY.REFERENCE></INSTANCE>");
}

TEST_F(AssociationOperationsTest, TakesNothingInAnotherNamespaceForItsNamesakeHere) {
    space_.add(bondFromElsewhere("a", "b") + bondFromElsewhere("b", "b"));
    EXPECT_EQ(find("Reference", smallPath("Leaf", "a")), "am ba");
    EXPECT_EQ(find("Reference", smallPath("Leaf", "b")), "bm ba ba bb");
    EXPECT_EQ(find("Associator", smallPath("Leaf", "b")), "m a");
}

TEST_F(AssociationOperationsTest, RefusesWhatIsNotThere) {
    for (const char* operation : {"Associators", "AssociatorNames", "References", "ReferenceNames"}) {
        EXPECT_EQ(errorOfRun(operation, {}), test::kInvalidParameter) << operation;
        EXPECT_EQ(errorOfRun(operation, {{"ObjectName", valueXml("a")}}), test::kInvalidParameter);
        EXPECT_EQ(errorOfRun(operation, {{"ObjectName", classNameXml("Nothing")}}), test::kInvalidParameter);
        EXPECT_EQ(errorOfRun(operation, {{"ObjectName", smallPath("Nothing", "a")}}),
                  test::kInvalidParameter);
        EXPECT_EQ(errorOfRun(operation, {{"ObjectName", smallPath("Leaf", "z")}}), test::kNotFound);
        EXPECT_EQ(errorOfRun(operation,
                             {{"ObjectName", smallPath("Leaf", "a")}, {"ResultClass", classNameXml("No")}}),
                  test::kInvalidParameter);
        EXPECT_EQ(
            errorOfRun(operation, {{"ObjectName", smallPath("Leaf", "a")}, {"LocalOnly", valueXml("TRUE")}}),
            test::kInvalidParameter);
    }
    EXPECT_EQ(errorOfRun("Associators",
                         {{"ObjectName", smallPath("Leaf", "a")}, {"AssocClass", classNameXml("No")}}),
              test::kInvalidParameter);
}

}  // namespace
}  // namespace cimom
