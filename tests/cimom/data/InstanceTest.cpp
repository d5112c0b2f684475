#include "cimom/data/Instance.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "cimom/common/Xml.h"
#include "tests/cimom/support/SmallNameSpace.h"

namespace cimom {
namespace {

class InstanceTest : public testing::Test {
protected:
    Instance make(const char* className, const std::string& properties) {
        document_ = std::make_unique<pugi::xml_document>();
        EXPECT_FALSE(parseXml("<INSTANCE>" + properties + "</INSTANCE>", *document_));
        return Instance(*space_->classes.find(className), document_->child("INSTANCE"), ObjectPath());
    }

    test::SmallNameSpace space_;
    std::unique_ptr<pugi::xml_document> document_;
};

const char* const kId = "<PROPERTY NAME=\"Id\" TYPE=\"string\"><VALUE>x</VALUE></PROPERTY>";

TEST_F(InstanceTest, TakesItsPathFromInheritedKeys) {
    const Instance instance = make("Leaf", kId);
    EXPECT_EQ(instance.nameXml(), test::smallPath("Leaf", "x"));
}

TEST_F(InstanceTest, SpellsNamesAsTheClassDoes) {
    const Instance instance =
        make("Leaf", "<PROPERTY NAME=\"iD\" TYPE=\"string\"><VALUE>x</VALUE></PROPERTY>");
    EXPECT_EQ(instance.plainXml(), kId);
}

TEST_F(InstanceTest, AddsATypeThatTheDeclarationLeavesOut) {
    const Instance instance = make("Leaf", "<PROPERTY NAME=\"Id\"><VALUE>x</VALUE></PROPERTY>");
    EXPECT_EQ(instance.plainXml(), kId);
}

TEST_F(InstanceTest, RefusesPropertiesThatTheClassLacks) {
    EXPECT_THROW(make("Middle", std::string(kId) + "<PROPERTY.ARRAY NAME=\"Tags\" TYPE=\"string\"/>"),
                 std::runtime_error);
}

TEST_F(InstanceTest, RefusesAPropertyGivenTwice) {
    EXPECT_THROW(make("Leaf", std::string(kId) + kId), std::runtime_error);
}

TEST_F(InstanceTest, RefusesAMissingOrNullKey) {
    EXPECT_THROW(make("Leaf", ""), std::runtime_error);
    EXPECT_THROW(make("Leaf", "<PROPERTY NAME=\"Id\" TYPE=\"string\"/>"), std::runtime_error);
}

TEST_F(InstanceTest, ReadsValuesWithTheClassDefaultsBehindThem) {
    const Instance instance =
        make("Leaf", std::string(kId) +
                         "<PROPERTY NAME=\"Caption\" TYPE=\"string\"><VALUE>a&lt;b</VALUE></PROPERTY>");
    EXPECT_EQ(instance.valueOf("caption"), "a<b");
    EXPECT_EQ(instance.valueXml("Caption"), "<VALUE>a&lt;b</VALUE>");
    EXPECT_EQ(instance.valueOf("Level"), "2");
    EXPECT_EQ(instance.valueOf("Size"), "");
    EXPECT_EQ(instance.valueOf("Tags"), "") << "no scalar";
    EXPECT_EQ(instance.valueOf("Nothing"), "");
}

TEST_F(InstanceTest, KeepsANullThatHidesADefault) {
    const Instance instance = make("Leaf", std::string(kId) + "<PROPERTY NAME=\"Level\" TYPE=\"uint16\"/>");
    EXPECT_EQ(instance.valueXml("Level"), "");
}

TEST_F(InstanceTest, TakesNewValuesOfAnyLength) {
    Instance instance =
        make("Leaf", std::string(kId) +
                         "<PROPERTY NAME=\"Level\" TYPE=\"uint16\"><VALUE>5</VALUE></PROPERTY>"
                         "<PROPERTY NAME=\"Size\" TYPE=\"sint32\"><VALUE>1</VALUE></PROPERTY>");
    instance.setValue("Level", "60000");
    instance.setValue("Size", "-2");
    instance.setValue("LEVEL", "7");
    EXPECT_EQ(instance.plainXml(),
              std::string(kId) +
                  "<PROPERTY NAME=\"Level\" TYPE=\"uint16\"><VALUE>7</VALUE></PROPERTY>"
                  "<PROPERTY NAME=\"Size\" TYPE=\"sint32\"><VALUE>-2</VALUE></PROPERTY>");
    EXPECT_EQ(instance.property(2).start, "<PROPERTY NAME=\"Size\"");
}

TEST_F(InstanceTest, TakesAValueForAPropertyThatItDidNotHold) {
    Instance instance = make("Leaf", kId);
    instance.setValue("caption", "a & b");
    EXPECT_EQ(instance.valueOf("Caption"), "a & b");
    EXPECT_EQ(instance.propertyCount(), 2U);
    EXPECT_THROW(instance.setValue("Nothing", "1"), std::runtime_error);
}

TEST_F(InstanceTest, GetsANewPathWithANewKeyValue) {
    Instance instance = make("Leaf", kId);
    instance.setValue("Id", "y");
    EXPECT_EQ(instance.nameXml(), test::smallPath("Leaf", "y"));
}

TEST_F(InstanceTest, CutsAPropertyIntoItsPieces) {
    const Instance instance =
        make("Leaf",
             "<PROPERTY NAME=\"Id\" TYPE=\"string\" CLASSORIGIN=\"Z\"><QUALIFIER NAME=\"Q\" TYPE=\"string\">"
             "<VALUE>q</VALUE></QUALIFIER><VALUE>x</VALUE></PROPERTY>");
    const PropertyText text = instance.property(0);
    EXPECT_EQ(text.start, "<PROPERTY NAME=\"Id\"");
    EXPECT_EQ(text.attributes, " TYPE=\"string\">");
    EXPECT_EQ(text.qualifiers, "<QUALIFIER NAME=\"Q\" TYPE=\"string\"><VALUE>q</VALUE></QUALIFIER>");
    EXPECT_EQ(text.rest, "<VALUE>x</VALUE></PROPERTY>");
    EXPECT_TRUE(instance.hasQualifiers());
    EXPECT_EQ(instance.plainXml(), "");
}

}  // namespace
}  // namespace cimom
