#include "cimom/data/InstanceWriter.h"

#include <gtest/gtest.h>

#include "cimom/common/Xml.h"
#include "tests/cimom/support/SmallNameSpace.h"

namespace cimom {
namespace {

using test::attributesOf;
using test::named;
using test::xmlOf;

class InstanceWriterTest : public testing::Test {
protected:
    /// The instance leaf "a".
    pugi::xml_node write(const InstanceOptions& options) {
        InstanceWriter writer(options);
        std::string xml;
        writer.append(xml, *space_->instances.ofClassAndBelow(*space_->classes.find("Leaf"))[0]);
        EXPECT_FALSE(parseXml(xml, document_)) << xml;
        return document_.child("INSTANCE");
    }

    test::SmallNameSpace space_;
    pugi::xml_document document_;
};

TEST_F(InstanceWriterTest, WritesTheInstancesOwnPropertiesWhenLocal) {
    EXPECT_EQ(xmlOf(write({})),
              "<INSTANCE CLASSNAME=\"Leaf\"><PROPERTY NAME=\"Id\" TYPE=\"string\"><VALUE>a</VALUE></PROPERTY>"
              "<PROPERTY NAME=\"Caption\" TYPE=\"string\"><VALUE>First &amp; best</VALUE></PROPERTY>"
              "<PROPERTY NAME=\"Size\" TYPE=\"sint32\"><VALUE>-5</VALUE></PROPERTY>"
              "<PROPERTY.REFERENCE NAME=\"Parent\"><VALUE.REFERENCE>" +
                  test::smallPath("Middle", "m") + "</VALUE.REFERENCE></PROPERTY.REFERENCE></INSTANCE>");
}

TEST_F(InstanceWriterTest, AddsClassDefaultsAndNullsWhenNotLocal) {
    InstanceOptions options;
    options.localOnly = false;
    const auto leaf = write(options);
    EXPECT_EQ(attributesOf(leaf, "NAME"), "Id Caption Size Parent Level Tags");
    EXPECT_STREQ(named(leaf, "Level").child_value("VALUE"), "2");
    EXPECT_EQ(xmlOf(named(leaf, "Tags")),
              "<PROPERTY.ARRAY NAME=\"Tags\" TYPE=\"string\"><VALUE.ARRAY><VALUE>t</VALUE></VALUE.ARRAY>"
              "</PROPERTY.ARRAY>");
}

TEST_F(InstanceWriterTest, WritesOriginsOnlyWhenAsked) {
    InstanceOptions options;
    options.includeClassOrigin = true;
    EXPECT_EQ(attributesOf(write(options), "CLASSORIGIN"), "Base Base Middle Leaf");
    options.localOnly = false;
    EXPECT_EQ(attributesOf(write(options), "CLASSORIGIN"), "Base Base Middle Leaf Base Leaf");
}

TEST_F(InstanceWriterTest, WritesQualifiersThatGoToInstances) {
    InstanceOptions options;
    options.includeQualifiers = true;
    options.localOnly = false;
    const auto leaf = write(options);
    EXPECT_EQ(attributesOf(named(leaf, "Id"), "NAME"), "Key");
    EXPECT_EQ(attributesOf(named(leaf, "Level"), "NAME"), "");
}

TEST_F(InstanceWriterTest, WritesAnInstancesOwnQualifiersWhenAsked) {
    space_.add(
        test::object("<INSTANCE CLASSNAME=\"Leaf\"><PROPERTY NAME=\"Id\" TYPE=\"string\"><QUALIFIER "
                     "NAME=\"Own\" TYPE=\"string\"><VALUE>o</VALUE></QUALIFIER><VALUE>a</VALUE></PROPERTY>"
                     "</INSTANCE>"));
    EXPECT_EQ(xmlOf(write({})),
              "<INSTANCE CLASSNAME=\"Leaf\"><PROPERTY NAME=\"Id\" TYPE=\"string\">"
              "<VALUE>a</VALUE></PROPERTY></INSTANCE>");
    InstanceOptions options;
    options.includeQualifiers = true;
    EXPECT_EQ(attributesOf(named(write(options), "Id"), "NAME"), "Own Key");
}

TEST_F(InstanceWriterTest, SelectsPropertiesByName) {
    InstanceOptions options;
    options.properties = {{"size", "level", "nothing"}};
    EXPECT_EQ(attributesOf(write(options), "NAME"), "Size");
    options.localOnly = false;
    EXPECT_EQ(attributesOf(write(options), "NAME"), "Size Level");
    options.properties.emplace();
    EXPECT_EQ(attributesOf(write(options), "NAME"), "");
}

TEST_F(InstanceWriterTest, LimitsPropertiesToThoseOfAClass) {
    InstanceOptions options;
    options.limitedTo = space_->classes.find("Base");
    EXPECT_EQ(attributesOf(write(options), "NAME"), "Id Caption");
    options.localOnly = false;
    EXPECT_EQ(attributesOf(write(options), "NAME"), "Id Caption Level");
}

}  // namespace
}  // namespace cimom
