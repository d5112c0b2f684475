#include "cimom/schema/QualifierTable.h"

#include <gtest/gtest.h>

#include "tests/cimom/support/SmallNameSpace.h"

namespace cimom {
namespace {

TEST(QualifierTable, FindsDeclarationsWithoutRegardToCase) {
    test::SmallNameSpace space;
    EXPECT_STREQ(space->qualifiers.find("KEY").attribute("NAME").value(), "Key");
    EXPECT_FALSE(space->qualifiers.find("Nothing"));
}

TEST(QualifierTable, KeepsTheOrderOfDeclarationAndReplacesInPlace) {
    test::SmallNameSpace space;
    space.add("<QUALIFIER.DECLARATION NAME=\"key\" TYPE=\"string\"/>");
    ASSERT_EQ(space->qualifiers.all().size(), 3U);
    EXPECT_STREQ(space->qualifiers.all()[0].attribute("TYPE").value(), "string");
}

TEST(QualifierTable, TakesFlavorsFromAttributesThenDeclarationThenDefaults) {
    test::SmallNameSpace space;
    pugi::xml_document document;
    document.load_string(
        "<Q><QUALIFIER NAME=\"key\"/><QUALIFIER NAME=\"Key\" OVERRIDABLE=\"TRUE\" TOINSTANCE=\"false\"/>"
        "<QUALIFIER NAME=\"Undeclared\"/></Q>");
    auto element = document.child("Q").first_child();
    Flavor flavor = space->qualifiers.flavorOf(element);
    EXPECT_FALSE(flavor.overridable);
    EXPECT_TRUE(flavor.toInstance);
    flavor = space->qualifiers.flavorOf(element = element.next_sibling());
    EXPECT_TRUE(flavor.overridable);
    EXPECT_FALSE(flavor.toInstance);
    flavor = space->qualifiers.flavorOf(element.next_sibling());
    EXPECT_TRUE(flavor.overridable);
    EXPECT_TRUE(flavor.toSubclass);
    EXPECT_FALSE(flavor.toInstance);
    EXPECT_FALSE(flavor.translatable);
}

}  // namespace
}  // namespace cimom
