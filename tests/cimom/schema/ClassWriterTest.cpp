#include "cimom/schema/ClassWriter.h"

#include <gtest/gtest.h>

#include "cimom/common/Xml.h"
#include "tests/cimom/support/SmallNameSpace.h"

namespace cimom {
namespace {

using test::attributesOf;
using test::named;
using test::xmlOf;

class ClassWriterTest : public testing::Test {
protected:
    pugi::xml_node write(const char* name, const ClassOptions& options) {
        std::string xml;
        appendClass(xml, *space_->classes.find(name), options);
        EXPECT_FALSE(parseXml(xml, document_)) << xml;
        return document_.child("CLASS");
    }

    static ClassOptions everything() {
        ClassOptions options;
        options.localOnly = false;
        options.includeClassOrigin = true;
        return options;
    }

    test::SmallNameSpace space_;
    pugi::xml_document document_;
};

TEST_F(ClassWriterTest, WritesOnlyItsOwnMembersWhenLocal) {
    const auto leaf = write("Leaf", {});
    EXPECT_STREQ(leaf.attribute("SUPERCLASS").value(), "Middle");
    EXPECT_EQ(attributesOf(leaf, "NAME"), "Tags Parent");
    EXPECT_EQ(attributesOf(leaf, "PROPAGATED"), "");
}

TEST_F(ClassWriterTest, WritesAllMembersAndMarksInheritedOnes) {
    const auto leaf = write("Leaf", everything());
    EXPECT_EQ(attributesOf(leaf, "NAME"), "Description Id Caption Level Size Tags Parent Reset Touch");
    EXPECT_STREQ(named(leaf, "Level").attribute("PROPAGATED").value(), "true");
    EXPECT_FALSE(named(leaf, "Tags").attribute("PROPAGATED"));
    EXPECT_STREQ(named(leaf, "Description").attribute("PROPAGATED").value(), "true");
}

TEST_F(ClassWriterTest, WritesOriginsOnlyWhenAsked) {
    EXPECT_EQ(attributesOf(write("Leaf", everything()), "CLASSORIGIN"),
              "Base Base Base Middle Leaf Leaf Base Middle");
    EXPECT_EQ(attributesOf(write("Leaf", {}), "CLASSORIGIN"), "");
}

TEST_F(ClassWriterTest, WritesOnlyAnElementsOwnQualifiersWhenLocal) {
    EXPECT_EQ(attributesOf(named(write("Middle", {}), "Level"), "NAME"), "Description");
    EXPECT_EQ(attributesOf(named(write("Middle", everything()), "Level"), "NAME"), "Description Units");
}

TEST_F(ClassWriterTest, LeavesOutQualifiersOfAllElements) {
    ClassOptions options = everything();
    options.includeQualifiers = false;
    EXPECT_EQ(xmlOf(write("Leaf", options)).find("QUALIFIER"), std::string::npos);
}

TEST_F(ClassWriterTest, WritesFlavorsThatDifferFromTheDefaults) {
    const auto key = named(named(write("Base", {}), "Id"), "Key");
    EXPECT_EQ(xmlOf(key),
              "<QUALIFIER NAME=\"Key\" TYPE=\"boolean\" OVERRIDABLE=\"false\" TOINSTANCE=\"true\">"
              "<VALUE>TRUE</VALUE></QUALIFIER>");
    const auto version = named(document_.child("CLASS"), "Version");
    EXPECT_STREQ(version.attribute("TOSUBCLASS").value(), "false");
    EXPECT_STREQ(named(document_.child("CLASS"), "Description").attribute("TRANSLATABLE").value(), "true");
}

TEST_F(ClassWriterTest, WritesDefaultValues) {
    EXPECT_STREQ(named(write("Leaf", everything()), "Level").child_value("VALUE"), "2");
    EXPECT_EQ(xmlOf(named(document_.child("CLASS"), "Tags").child("VALUE.ARRAY")),
              "<VALUE.ARRAY><VALUE>t</VALUE></VALUE.ARRAY>");
}

TEST_F(ClassWriterTest, WritesReferencesWithTheirClass) {
    EXPECT_EQ(xmlOf(named(write("Leaf", {}), "Parent")),
              "<PROPERTY.REFERENCE NAME=\"Parent\" REFERENCECLASS=\"Base\"></PROPERTY.REFERENCE>");
}

TEST_F(ClassWriterTest, WritesMethodsWithParameters) {
    const auto touch = named(write("Middle", {}), "Touch");
    EXPECT_EQ(attributesOf(touch, "NAME"), "Description Count Texts Done Where Others");
    EXPECT_STREQ(named(touch, "Others").name(), "PARAMETER.REFARRAY");
    EXPECT_EQ(attributesOf(named(touch, "Done"), "NAME"), "In Out");
}

TEST_F(ClassWriterTest, SelectsPropertiesButKeepsMethods) {
    ClassOptions options = everything();
    options.includeQualifiers = false;
    options.properties.emplace();
    EXPECT_EQ(attributesOf(write("Leaf", options), "NAME"), "Reset Touch");
    options.properties = {{"size", "nothing"}};
    EXPECT_EQ(attributesOf(write("Leaf", options), "NAME"), "Size Reset Touch");
}

}  // namespace
}  // namespace cimom
