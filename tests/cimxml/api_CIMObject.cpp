#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObject.h>

#include "ApiTesting.h"

using namespace Pegasus;

namespace {

CIMInstance someInstance() {
    CIMInstance result{CIMName("A")};
    result.addProperty(CIMProperty(CIMName("p"), CIMValue(Uint32(1))));
    result.addQualifier(CIMQualifier(CIMName("q"), CIMValue(true)));
    return result;
}

std::string xmlOf(const CIMProperty& property) {
    CIMInstance holder{CIMName("A")};
    holder.addProperty(property);
    const std::string xml = utf8(CIMObject(holder).toString());
    const std::string before = "<INSTANCE CLASSNAME=\"A\" >\n";
    const std::string after = "</INSTANCE>\n";
    EXPECT_EQ(xml.substr(0, before.size()), before);
    return xml.substr(before.size(), xml.size() - before.size() - after.size());
}

std::string valueXml(const CIMValue& value) {
    const std::string xml = xmlOf(CIMProperty(CIMName("p"), value));
    const std::size_t begin = xml.find(">\n") + 2;
    return xml.substr(begin, xml.rfind("</PROPERTY") - begin);
}

}  // namespace

TEST(CIMObject, IsAnInstanceOrAClass) {
    const CIMObject ofInstance(someInstance());
    const CIMObject ofClass{CIMClass(CIMName("A"))};
    EXPECT_TRUE(ofInstance.isInstance());
    EXPECT_FALSE(ofInstance.isClass());
    EXPECT_TRUE(ofClass.isClass());
    EXPECT_FALSE(ofClass.isInstance());
    const CIMConstObject constOfInstance{CIMConstInstance(someInstance())};
    EXPECT_TRUE(constOfInstance.isInstance());
    const CIMConstObject constOfClass{CIMConstClass(CIMName("A"))};
    EXPECT_TRUE(constOfClass.isClass());
}

TEST(CIMObject, NullHandleThrowsWhenRead) {
    CIMObject null;
    EXPECT_TRUE(null.isUninitialized());
    EXPECT_FALSE(null.isClass());
    EXPECT_FALSE(null.isInstance());
    expectUninitialized([&] { null.getClassName(); });
    expectUninitialized([&] { null.getPath(); });
    expectUninitialized([&] { null.setPath(CIMObjectPath()); });
    expectUninitialized([&] { null.findQualifier(CIMName("x")); });
    expectUninitialized([&] { null.getQualifier(0); });
    expectUninitialized([&] { null.getQualifierCount(); });
    expectUninitialized([&] { null.findProperty(CIMName("x")); });
    expectUninitialized([&] { null.getProperty(0); });
    expectUninitialized([&] { null.getPropertyCount(); });
    expectUninitialized([&] { null.addProperty(CIMProperty(CIMName("p"), CIMValue())); });
    expectUninitialized([&] { null.addQualifier(CIMQualifier(CIMName("q"), CIMValue())); });
    expectUninitialized([&] { null.removeProperty(0); });
    expectUninitialized([&] { null.removeQualifier(0); });
    expectUninitialized([&] { null.toString(); });
    expectUninitialized([&] { null.clone(); });
    expectUninitialized([&] { null.identical(CIMObject(someInstance())); });
    expectUninitialized([&] { CIMObject(someInstance()).identical(null); });
    expectUninitialized([&] { null.instanceFilter(true, true, CIMPropertyList()); });
    EXPECT_TRUE(CIMConstObject().isUninitialized());
    expectUninitialized([] { CIMConstObject().getClassName(); });
}

TEST(CIMObject, CanBeMadeOfNullHandles) {
    EXPECT_TRUE(CIMObject(CIMInstance()).isUninitialized());
    EXPECT_TRUE(CIMObject(CIMClass()).isUninitialized());
    EXPECT_TRUE(CIMConstObject(CIMConstInstance()).isUninitialized());
}

TEST(CIMObject, SharesTheObjectItIsMadeOf) {
    CIMInstance i = someInstance();
    CIMObject object(i);
    object.removeProperty(0);
    EXPECT_EQ(i.getPropertyCount(), 0u);
    CIMInstance back(object);
    back.addProperty(CIMProperty(CIMName("x"), CIMValue()));
    EXPECT_EQ(object.getPropertyCount(), 1u);
}

TEST(CIMObject, CannotBeCastToWhatItIsNot) {
    const CIMObject ofInstance(someInstance());
    const CIMObject ofClass{CIMClass(CIMName("A"))};
    const std::string message = "dynamic cast failed";
    EXPECT_EQ(messageThrownBy<DynamicCastFailedException>([&] { (void)CIMClass(ofInstance); }), message);
    EXPECT_EQ(messageThrownBy<DynamicCastFailedException>([&] { (void)CIMInstance(ofClass); }), message);
    EXPECT_EQ(messageThrownBy<DynamicCastFailedException>([&] { (void)CIMConstClass(ofInstance); }), message);
    EXPECT_EQ(messageThrownBy<DynamicCastFailedException>([&] { (void)CIMConstInstance(ofClass); }), message);
    EXPECT_EQ(messageThrownBy<DynamicCastFailedException>([&] { (void)CIMInstance(CIMObject()); }), message);
    EXPECT_EQ(messageThrownBy<DynamicCastFailedException>([&] { (void)CIMClass(CIMObject()); }), message);
}

TEST(CIMObject, ReadsAndChangesElements) {
    CIMObject object(someInstance());
    object.addProperty(CIMProperty(CIMName("r"), CIMValue(true)))
        .addQualifier(CIMQualifier(CIMName("s"), CIMValue(true)));
    EXPECT_EQ(object.findProperty(CIMName("R")), 1u);
    EXPECT_EQ(object.findQualifier(CIMName("S")), 1u);
    object.getProperty(1).setValue(CIMValue(false));
    const CIMObject& reader = object;
    EXPECT_TRUE(reader.getProperty(1).getValue() == CIMValue(false));
    EXPECT_EQ(utf8(reader.getQualifier(1).getName().getString()), "s");
    object.removeProperty(0);
    object.removeQualifier(0);
    EXPECT_EQ(object.getPropertyCount(), 1u);
    EXPECT_EQ(object.getQualifierCount(), 1u);
}

TEST(CIMObject, ClonesAreIndependent) {
    const CIMObject original(someInstance());
    CIMObject clone = original.clone();
    EXPECT_TRUE(clone.identical(original));
    EXPECT_TRUE(clone.isInstance());
    clone.getProperty(0).setValue(CIMValue(Uint32(2)));
    CIMConstObject constCopy(original);
    EXPECT_TRUE(constCopy.getProperty(0).getValue() == CIMValue(Uint32(1)));
    EXPECT_TRUE(CIMObject(CIMClass(CIMName("A"))).clone().isClass());
}

TEST(CIMObject, FiltersPropertiesQualifiersAndOrigins) {
    CIMInstance i = someInstance();
    CIMProperty p(CIMName("r"), CIMValue(true), 0, CIMName(), CIMName("Origin"));
    p.addQualifier(CIMQualifier(CIMName("q"), CIMValue(true)));
    i.addProperty(p);
    CIMObject all(i.clone());
    all.instanceFilter(true, true, CIMPropertyList());
    EXPECT_TRUE(all.identical(CIMObject(i)));
    CIMObject some(i.clone());
    some.instanceFilter(false, false, CIMPropertyList(Array<CIMName>(1, CIMName("R"))));
    EXPECT_EQ(some.getQualifierCount(), 0u);
    ASSERT_EQ(some.getPropertyCount(), 1u);
    EXPECT_EQ(utf8(some.getProperty(0).getName().getString()), "r");
    EXPECT_EQ(some.getProperty(0).getQualifierCount(), 0u);
    EXPECT_TRUE(some.getProperty(0).getClassOrigin().isNull());
    CIMObject none(i.clone());
    none.instanceFilter(true, true, CIMPropertyList(Array<CIMName>()));
    EXPECT_EQ(none.getPropertyCount(), 0u);
    EXPECT_EQ(none.getQualifierCount(), 1u);
}

TEST(CIMObjectXml, OfAnInstance) {
    EXPECT_EQ(utf8(CIMObject(someInstance()).toString()),
              "<INSTANCE CLASSNAME=\"A\" >\n"
              "<QUALIFIER NAME=\"q\" TYPE=\"boolean\" OVERRIDABLE=\"false\" TOSUBCLASS=\"false\">\n"
              "<VALUE>TRUE</VALUE>\n</QUALIFIER>\n"
              "<PROPERTY NAME=\"p\"  TYPE=\"uint32\">\n<VALUE>1</VALUE>\n</PROPERTY>\n</INSTANCE>\n");
}

TEST(CIMObjectXml, OfAClass) {
    CIMClass c(CIMName("C"), CIMName("Super"));
    CIMMethod m(CIMName("m"), CIMTYPE_UINT32, CIMName("Origin"), true);
    m.addQualifier(CIMQualifier(CIMName("q"), CIMValue(String("x")),
                                CIMFlavor::DEFAULTS + CIMFlavor::TRANSLATABLE + CIMFlavor::TOINSTANCE, true));
    m.addParameter(CIMParameter(CIMName("a"), CIMTYPE_STRING));
    m.addParameter(CIMParameter(CIMName("b"), CIMTYPE_STRING, true, 3));
    m.addParameter(CIMParameter(CIMName("c"), CIMTYPE_REFERENCE, false, 0, CIMName("R")));
    m.addParameter(CIMParameter(CIMName("d"), CIMTYPE_REFERENCE, true, 2, CIMName("R")));
    c.addMethod(m);
    EXPECT_EQ(utf8(CIMObject(c).toString()),
              "<CLASS NAME=\"C\"  SUPERCLASS=\"Super\" >\n"
              "<METHOD NAME=\"m\" TYPE=\"uint32\" CLASSORIGIN=\"Origin\" PROPAGATED=\"true\">\n"
              "<QUALIFIER NAME=\"q\" TYPE=\"string\" PROPAGATED=\"true\" TRANSLATABLE=\"true\">\n"
              "<VALUE>x</VALUE>\n</QUALIFIER>\n"
              "<PARAMETER NAME=\"a\" TYPE=\"string\">\n</PARAMETER>\n"
              "<PARAMETER.ARRAY NAME=\"b\" TYPE=\"string\" ARRAYSIZE=\"3\">\n</PARAMETER.ARRAY>\n"
              "<PARAMETER.REFERENCE NAME=\"c\" REFERENCECLASS=\"R\">\n</PARAMETER.REFERENCE>\n"
              "<PARAMETER.REFARRAY NAME=\"d\" REFERENCECLASS=\"R\" ARRAYSIZE=\"2\">\n</PARAMETER.REFARRAY>\n"
              "</METHOD>\n</CLASS>\n");
}

TEST(CIMObjectXml, OfProperties) {
    EXPECT_EQ(
        xmlOf(CIMProperty(CIMName("p"), CIMValue(CIMTYPE_SINT8, false), 0, CIMName(), CIMName("O"), true)),
        "<PROPERTY NAME=\"p\"  CLASSORIGIN=\"O\" PROPAGATED=\"true\" TYPE=\"sint8\">\n</PROPERTY>\n");
    EXPECT_EQ(
        xmlOf(CIMProperty(CIMName("p"), CIMValue(Array<Uint8>(2, Uint8(7))), 2, CIMName(), CIMName("O"))),
        "<PROPERTY.ARRAY NAME=\"p\"  TYPE=\"uint8\" ARRAYSIZE=\"2\" CLASSORIGIN=\"O\">\n"
        "<VALUE.ARRAY>\n<VALUE>7</VALUE>\n<VALUE>7</VALUE>\n</VALUE.ARRAY>\n</PROPERTY.ARRAY>\n");
    EXPECT_EQ(
        xmlOf(CIMProperty(CIMName("p"), CIMValue(Array<Uint8>()))),
        "<PROPERTY.ARRAY NAME=\"p\"  TYPE=\"uint8\">\n<VALUE.ARRAY>\n</VALUE.ARRAY>\n</PROPERTY.ARRAY>\n");
    EXPECT_EQ(xmlOf(CIMProperty(CIMName("p"), CIMValue(CIMTYPE_REFERENCE, false), 0, CIMName("R"))),
              "<PROPERTY.REFERENCE NAME=\"p\"  REFERENCECLASS=\"R\">\n</PROPERTY.REFERENCE>\n");
    EXPECT_EQ(xmlOf(CIMProperty(CIMName("p"), CIMValue(CIMTYPE_REFERENCE, false))),
              "<PROPERTY.REFERENCE NAME=\"p\" >\n</PROPERTY.REFERENCE>\n");
}

TEST(CIMObjectXml, OfReferencePropertiesWithAnOrigin) {
    EXPECT_EQ(xmlOf(CIMProperty(CIMName("p"), CIMValue(CIMTYPE_REFERENCE, false), 0, CIMName("R"),
                                CIMName("O"), true)),
              "<PROPERTY.REFERENCE NAME=\"p\"  REFERENCECLASS=\"R\" CLASSORIGIN=\"O\" PROPAGATED=\"true\">\n"
              "</PROPERTY.REFERENCE>\n");
}

TEST(CIMObjectXml, OfValues) {
    EXPECT_EQ(valueXml(CIMValue(false)), "<VALUE>FALSE</VALUE>\n");
    EXPECT_EQ(valueXml(CIMValue(Sint64(-7))), "<VALUE>-7</VALUE>\n");
    EXPECT_EQ(valueXml(CIMValue(Real32(1.5f))), "<VALUE>1.5000000e+00</VALUE>\n");
    EXPECT_EQ(valueXml(CIMValue(Real64(0.1))), "<VALUE>1.0000000000000001e-01</VALUE>\n");
    EXPECT_EQ(valueXml(CIMValue(Char16('<'))), "<VALUE>&lt;</VALUE>\n");
    EXPECT_EQ(valueXml(CIMValue(Char16(' '))), "<VALUE> </VALUE>\n");
    EXPECT_EQ(valueXml(CIMValue(Char16(0x20AC))), "<VALUE>\xE2\x82\xAC</VALUE>\n");
    EXPECT_EQ(valueXml(CIMValue(CIMDateTime())), "<VALUE>00000000000000.000000:000</VALUE>\n");
    EXPECT_EQ(valueXml(CIMValue(String())), "<VALUE></VALUE>\n");
}

TEST(CIMObjectXml, EscapesTexts) {
    EXPECT_EQ(valueXml(CIMValue(String("<a b='1' c=\"2\">&"))),
              "<VALUE>&lt;a b=&apos;1&apos; c=&quot;2&quot;&gt;&amp;</VALUE>\n");
    EXPECT_EQ(valueXml(CIMValue(String("\t\n\r\x1F\x7F"))), "<VALUE>&#9;&#10;&#13;&#31;&#127;</VALUE>\n");
    EXPECT_EQ(valueXml(CIMValue(String(" a  b "))), "<VALUE>&#32;a &#32;b&#32;</VALUE>\n");
    EXPECT_EQ(valueXml(CIMValue(String("   "))), "<VALUE>&#32; &#32;</VALUE>\n");
    EXPECT_EQ(valueXml(CIMValue(String("\xC3\xA4\xF0\x9F\x98\x80"))),
              "<VALUE>\xC3\xA4\xF0\x9F\x98\x80</VALUE>\n");
}

TEST(CIMObjectXml, OfReferences) {
    EXPECT_EQ(valueXml(CIMValue(CIMObjectPath(String("B.k=\"x<\",n=7,t=TRUE")))),
              "<VALUE.REFERENCE>\n<INSTANCENAME CLASSNAME=\"B\">\n"
              "<KEYBINDING NAME=\"k\">\n<KEYVALUE VALUETYPE=\"string\">x&lt;</KEYVALUE>\n</KEYBINDING>\n"
              "<KEYBINDING NAME=\"n\">\n<KEYVALUE VALUETYPE=\"numeric\">7</KEYVALUE>\n</KEYBINDING>\n"
              "<KEYBINDING NAME=\"t\">\n<KEYVALUE VALUETYPE=\"boolean\">TRUE</KEYVALUE>\n</KEYBINDING>\n"
              "</INSTANCENAME>\n</VALUE.REFERENCE>\n");
    EXPECT_EQ(valueXml(CIMValue(CIMObjectPath(String("root/x:B.k=\"C.n=1\"")))),
              "<VALUE.REFERENCE>\n<LOCALINSTANCEPATH>\n<LOCALNAMESPACEPATH>\n<NAMESPACE NAME=\"root\"/>\n"
              "<NAMESPACE NAME=\"x\"/>\n</LOCALNAMESPACEPATH>\n<INSTANCENAME CLASSNAME=\"B\">\n"
              "<KEYBINDING NAME=\"k\">\n<VALUE.REFERENCE>\n<INSTANCENAME CLASSNAME=\"C\">\n"
              "<KEYBINDING NAME=\"n\">\n<KEYVALUE VALUETYPE=\"numeric\">1</KEYVALUE>\n</KEYBINDING>\n"
              "</INSTANCENAME>\n</VALUE.REFERENCE>\n</KEYBINDING>\n</INSTANCENAME>\n"
              "</LOCALINSTANCEPATH>\n</VALUE.REFERENCE>\n");
    EXPECT_EQ(valueXml(CIMValue(CIMObjectPath(String("//h1/root:B")))),
              "<VALUE.REFERENCE>\n<INSTANCEPATH>\n<NAMESPACEPATH>\n<HOST>h1</HOST>\n<LOCALNAMESPACEPATH>\n"
              "<NAMESPACE NAME=\"root\"/>\n</LOCALNAMESPACEPATH>\n</NAMESPACEPATH>\n"
              "<INSTANCENAME CLASSNAME=\"B\">\n</INSTANCENAME>\n</INSTANCEPATH>\n</VALUE.REFERENCE>\n");
}

TEST(CIMObjectXml, OfEmbeddedObjects) {
    const CIMInstance embedded{CIMName("E")};
    const std::string escaped = "&lt;INSTANCE CLASSNAME=&quot;E&quot; &gt;&#10;&lt;/INSTANCE&gt;&#10;";
    EXPECT_EQ(
        xmlOf(CIMProperty(CIMName("p"), CIMValue(embedded))),
        "<PROPERTY NAME=\"p\"  TYPE=\"string\" EmbeddedObject=\"instance\" EMBEDDEDOBJECT=\"instance\">\n"
        "<VALUE>" +
            escaped + "</VALUE>\n</PROPERTY>\n");
    EXPECT_EQ(xmlOf(CIMProperty(CIMName("p"), CIMValue(CIMObject(embedded)))),
              "<PROPERTY NAME=\"p\"  TYPE=\"string\" EmbeddedObject=\"object\" EMBEDDEDOBJECT=\"object\">\n"
              "<VALUE>" +
                  escaped + "</VALUE>\n</PROPERTY>\n");
    EXPECT_EQ(xmlOf(CIMProperty(CIMName("p"), CIMValue(Array<CIMInstance>(1, embedded)))),
              "<PROPERTY.ARRAY NAME=\"p\"  TYPE=\"string\" EmbeddedObject=\"instance\""
              " EMBEDDEDOBJECT=\"instance\">\n<VALUE.ARRAY>\n<VALUE>" +
                  escaped + "</VALUE>\n</VALUE.ARRAY>\n</PROPERTY.ARRAY>\n");
    EXPECT_EQ(xmlOf(CIMProperty(CIMName("p"), CIMValue(CIMTYPE_INSTANCE, true))),
              "<PROPERTY.ARRAY NAME=\"p\"  TYPE=\"string\">\n</PROPERTY.ARRAY>\n");
    EXPECT_EQ(xmlOf(CIMProperty(CIMName("p"), CIMValue(CIMTYPE_INSTANCE, true, 3), 3)),
              "<PROPERTY.ARRAY NAME=\"p\"  TYPE=\"string\" ARRAYSIZE=\"3\">\n</PROPERTY.ARRAY>\n");
}

TEST(CIMObjectXml, EscapesTheDoubledBlanksOfEmbeddedObjects) {
    CIMInstance embedded{CIMName("E")};
    embedded.addProperty(CIMProperty(CIMName("p"), CIMValue(String(" <"))));
    EXPECT_EQ(valueXml(CIMValue(embedded)),
              "<VALUE>&lt;INSTANCE CLASSNAME=&quot;E&quot; &gt;&#10;"
              "&lt;PROPERTY NAME=&quot;p&quot; &#32;TYPE=&quot;string&quot;&gt;&#10;"
              "&lt;VALUE&gt;&amp;#32;&amp;lt;&lt;/VALUE&gt;&#10;"
              "&lt;/PROPERTY&gt;&#10;&lt;/INSTANCE&gt;&#10;</VALUE>\n");
}

TEST(CIMObjectXml, TellsEmbeddedClassesByAQualifier) {
    const CIMObject embedded{CIMClass(CIMName("E"))};
    EXPECT_EQ(
        xmlOf(CIMProperty(CIMName("p"), CIMValue(embedded))),
        "<PROPERTY NAME=\"p\"  TYPE=\"string\">\n"
        "<QUALIFIER NAME=\"EmbeddedObject\" TYPE=\"boolean\" OVERRIDABLE=\"false\" TOSUBCLASS=\"false\">\n"
        "<VALUE>TRUE</VALUE>\n</QUALIFIER>\n"
        "<VALUE>&lt;CLASS NAME=&quot;E&quot; &gt;&#10;&lt;/CLASS&gt;&#10;</VALUE>\n</PROPERTY>\n");
}

TEST(CIMObjectXml, TellsByTheFirstOfAnArrayWhetherItEmbedsClasses) {
    const CIMObject instance{CIMInstance(CIMName("I"))};
    const CIMObject cimClass{CIMClass(CIMName("C"))};
    const auto tagsBefore = [](const CIMProperty& property) {
        const std::string xml = xmlOf(property);
        return xml.substr(0, xml.find("<VALUE.ARRAY>"));
    };
    const std::string qualifier =
        "<QUALIFIER NAME=\"EmbeddedObject\" TYPE=\"boolean\" OVERRIDABLE=\"false\" TOSUBCLASS=\"false\">\n"
        "<VALUE>TRUE</VALUE>\n</QUALIFIER>\n";
    Array<CIMObject> objects(1, instance);
    objects.append(cimClass);
    EXPECT_EQ(
        tagsBefore(CIMProperty(CIMName("p"), CIMValue(objects))),
        "<PROPERTY.ARRAY NAME=\"p\"  TYPE=\"string\" EmbeddedObject=\"object\" EMBEDDEDOBJECT=\"object\">\n");
    objects.prepend(cimClass);
    EXPECT_EQ(tagsBefore(CIMProperty(CIMName("p"), CIMValue(objects))),
              "<PROPERTY.ARRAY NAME=\"p\"  TYPE=\"string\">\n" + qualifier);
    EXPECT_EQ(tagsBefore(CIMProperty(CIMName("p"), CIMValue(Array<CIMObject>()))),
              "<PROPERTY.ARRAY NAME=\"p\"  TYPE=\"string\">\n" + qualifier);
    EXPECT_EQ(xmlOf(CIMProperty(CIMName("p"), CIMValue(CIMTYPE_OBJECT, false))),
              "<PROPERTY NAME=\"p\"  TYPE=\"string\">\n" + qualifier + "</PROPERTY>\n");
}

TEST(CIMObjectXml, KeepsTheQualifierOfAnEmbeddedClass) {
    CIMProperty property(CIMName("p"), CIMValue(CIMObject(CIMClass(CIMName("C")))));
    property.addQualifier(CIMQualifier(CIMName("EMBEDDEDOBJECT"), CIMValue(false), CIMFlavor::DEFAULTS));
    EXPECT_EQ(xmlOf(property),
              "<PROPERTY NAME=\"p\"  TYPE=\"string\">\n"
              "<QUALIFIER NAME=\"EMBEDDEDOBJECT\" TYPE=\"boolean\">\n<VALUE>FALSE</VALUE>\n</QUALIFIER>\n"
              "<VALUE>&lt;CLASS NAME=&quot;C&quot; &gt;&#10;&lt;/CLASS&gt;&#10;</VALUE>\n</PROPERTY>\n");
}
