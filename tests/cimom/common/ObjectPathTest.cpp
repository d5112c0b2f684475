#include "cimom/common/ObjectPath.h"

#include <gtest/gtest.h>

#include "cimom/common/CimError.h"
#include "cimom/common/Xml.h"
#include "tests/cimom/support/Requests.h"

namespace cimom {
namespace {

using test::instanceNameXml;
using test::keyXml;

ObjectPath read(const std::string& xml) {
    pugi::xml_document document;
    EXPECT_FALSE(parseXml(xml, document)) << xml;
    return readObjectPath(firstElement(document));
}

std::string canonicalOf(const std::string& xml) {
    return read(xml).canonical();
}

TEST(ObjectPath, IsTheSameForAllSpellingsOfNamesAndOrdersOfKeys) {
    EXPECT_EQ(canonicalOf(instanceNameXml("C", keyXml("a", "1") + keyXml("b", "2"))),
              canonicalOf(instanceNameXml("c", keyXml("B", "2") + keyXml("A", "1"))));
}

TEST(ObjectPath, IsTheSameForAllSpellingsOfNumbersAndBooleans) {
    EXPECT_EQ(
        canonicalOf(instanceNameXml("C", keyXml("a", " 0x10 ", "numeric") + keyXml("b", "TRUE", "boolean"))),
        canonicalOf(instanceNameXml("C", keyXml("a", "16", "numeric") + keyXml("b", "true", "boolean"))));
}

TEST(ObjectPath, TellsStringsApartToTheLetter) {
    EXPECT_NE(canonicalOf(instanceNameXml("C", keyXml("a", "x"))),
              canonicalOf(instanceNameXml("C", keyXml("a", "X"))));
    EXPECT_NE(canonicalOf(instanceNameXml("C", keyXml("a", "x"))),
              canonicalOf(instanceNameXml("C", keyXml("a", "x "))));
}

TEST(ObjectPath, IsNotMisledByValuesThatLookLikeKeys) {
    EXPECT_NE(canonicalOf(instanceNameXml("C", keyXml("a", "1.b=1:2"))),
              canonicalOf(instanceNameXml("C", keyXml("a", "1") + keyXml("b", "2"))));
}

TEST(ObjectPath, TellsAClassFromAnInstanceWithoutKeys) {
    EXPECT_FALSE(read("<CLASSNAME NAME=\"C\"/>").isInstance);
    EXPECT_TRUE(read("<INSTANCENAME CLASSNAME=\"C\"/>").isInstance);
}

TEST(ObjectPath, ReadsPathsWithHostAndNamespace) {
    const std::string local = "<LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/></LOCALNAMESPACEPATH>";
    const std::string name = instanceNameXml("C", keyXml("a", "1"));
    EXPECT_EQ(canonicalOf("<LOCALINSTANCEPATH>" + local + name + "</LOCALINSTANCEPATH>"), canonicalOf(name));
    EXPECT_EQ(canonicalOf("<INSTANCEPATH><NAMESPACEPATH><HOST>h</HOST>" + local + "</NAMESPACEPATH>" + name +
                          "</INSTANCEPATH>"),
              canonicalOf(name));
    EXPECT_EQ(read("<LOCALCLASSPATH>" + local + "<CLASSNAME NAME=\"C\"/></LOCALCLASSPATH>").className, "C");
}

TEST(ObjectPath, ComparesReferenceKeysByWhatTheyPointAt) {
    const auto withReference = [](const std::string& target) {
        return instanceNameXml(
            "C", "<KEYBINDING NAME=\"r\"><VALUE.REFERENCE>" + target + "</VALUE.REFERENCE></KEYBINDING>");
    };
    EXPECT_EQ(canonicalOf(withReference(instanceNameXml("T", keyXml("x", "1") + keyXml("y", "2")))),
              canonicalOf(withReference(instanceNameXml("t", keyXml("Y", "2") + keyXml("X", "1")))));
    EXPECT_NE(canonicalOf(withReference(instanceNameXml("T", keyXml("x", "1")))),
              canonicalOf(withReference(instanceNameXml("T", keyXml("x", "2")))));
}

TEST(ObjectPath, TakesTheTypeOfAKeyFromTypeBeforeValueType) {
    const ObjectPath path = read(
        "<INSTANCENAME CLASSNAME=\"C\"><KEYBINDING NAME=\"a\"><KEYVALUE VALUETYPE=\"string\" "
        "TYPE=\"uint8\">01"
        "</KEYVALUE></KEYBINDING><KEYBINDING NAME=\"b\"><KEYVALUE "
        "TYPE=\"\">01</KEYVALUE></KEYBINDING></INSTANCENAME>");
    EXPECT_EQ(path.keys[0].canonical, "1");
    EXPECT_EQ(path.keys[1].canonical, "01");
}

TEST(ObjectPath, ReadsASingleKeyWithoutAName) {
    const ObjectPath path = read("<INSTANCENAME CLASSNAME=\"C\"><KEYVALUE>x</KEYVALUE></INSTANCENAME>");
    ASSERT_EQ(path.keys.size(), 1U);
    EXPECT_EQ(path.keys[0].name, "");
    EXPECT_EQ(path.keys[0].value, "x");
}

TEST(ObjectPath, RefusesWhatIsNoPath) {
    for (const char* xml :
         {"<VALUE>x</VALUE>", "<INSTANCENAME/>", "<CLASSNAME/>", "<INSTANCEPATH/>",
          "<INSTANCENAME CLASSNAME=\"C\"><KEYBINDING><KEYVALUE>1</KEYVALUE></KEYBINDING></INSTANCENAME>",
          "<INSTANCENAME CLASSNAME=\"C\"><KEYBINDING NAME=\"a\"/></INSTANCENAME>",
          "<INSTANCENAME CLASSNAME=\"C\"><KEYBINDING NAME=\"a\"><KEYVALUE VALUETYPE=\"odd\">1</KEYVALUE>"
          "</KEYBINDING></INSTANCENAME>",
          "<INSTANCENAME CLASSNAME=\"C\"><KEYBINDING "
          "NAME=\"a\"><VALUE.REFERENCE/></KEYBINDING></INSTANCENAME>"}) {
        EXPECT_THROW(read(xml), CimError) << xml;
    }
}

TEST(ObjectPath, IsWrittenAsItWasRead) {
    const std::string xml = instanceNameXml(
        "C",
        keyXml("s", "a&lt;&amp;\"") + keyXml("n", "5", "numeric") + keyXml("b", "TRUE", "boolean") +
            "<KEYBINDING NAME=\"r\"><VALUE.REFERENCE><CLASSNAME NAME=\"T\"></CLASSNAME></VALUE.REFERENCE>"
            "</KEYBINDING>");
    std::string out;
    appendInstanceName(out, read(xml));
    EXPECT_EQ(out, xml);
}

}  // namespace
}  // namespace cimom
