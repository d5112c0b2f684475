#include "cimxml/common/ObjectWriter.h"

#include <Pegasus/Common/CIMDateTime.h>

#include <limits>

#include "ApiTesting.h"
#include "cimxml/common/ValueWriter.h"
#include "cimxml/wire/ClassReader.h"
#include "cimxml/wire/DecodeContext.h"
#include "cimxml/wire/InstanceReader.h"
#include "cimxml/wire/Limits.h"
#include "cimxml/wire/XmlDocument.h"

namespace cimxml_test {
namespace {

using namespace Pegasus;
using cimxml::XmlLayout;
using cimxml::XmlOutput;

std::string xmlIn(XmlLayout layout, const CIMConstObject& object) {
    std::string text;
    cimxml::ObjectWriter(XmlOutput(text, layout)).write(object);
    return text;
}

std::string xmlIn(XmlLayout layout, const CIMValue& value) {
    std::string text;
    cimxml::ValueWriter(XmlOutput(text, layout)).write(value);
    return text;
}

std::string sentXml(const CIMProperty& property) {
    CIMInstance holder{CIMName("A")};
    holder.addProperty(property);
    const std::string xml = xmlIn(XmlLayout::Sent, holder);
    const std::string before = "<INSTANCE CLASSNAME=\"A\">";
    const std::string after = "</INSTANCE>";
    EXPECT_EQ(xml.substr(0, before.size()), before);
    return xml.substr(before.size(), xml.size() - before.size() - after.size());
}

template <class Reader>
auto readBack(const std::string& text) {
    const cimxml::Limits limits;
    cimxml::DecodeContext context(limits);
    const cimxml::XmlDocument document(text, context);
    return Reader(context).read(document.root());
}

CIMInstance embeddedInstance() {
    CIMInstance result{CIMName("E")};
    result.addProperty(CIMProperty(CIMName("p"), CIMValue(String(" <a>  b "))));
    return result;
}

CIMInstance instanceOfEveryKind() {
    CIMInstance result{CIMName("A")};
    result.addQualifier(CIMQualifier(CIMName("q"), CIMValue(Array<String>(2, String("x"))),
                                     CIMFlavor::DEFAULTS + CIMFlavor::TRANSLATABLE, true));
    int count = 0;
    const auto add = [&](const CIMValue& value) {
        const std::string name = "p" + std::to_string(count++);
        result.addProperty(
            CIMProperty(CIMName(name.c_str()), value, 0, CIMName(), CIMName("O"), count % 2 == 0));
    };
    add(CIMValue(true));
    add(CIMValue(Sint8(-7)));
    add(CIMValue(std::numeric_limits<Uint64>::max()));
    add(CIMValue(Real32(1.1f)));
    add(CIMValue(Real64(-0.1)));
    add(CIMValue(Real64(-std::numeric_limits<Real64>::infinity())));
    add(CIMValue(Char16(' ')));
    add(CIMValue(String("  <&>\"'\t\r\n\x7F\xC3\xA4\xF0\x9F\x98\x80  ")));
    add(CIMValue(CIMDateTime(String("20180911124613.128763+120"))));
    add(CIMValue(CIMObjectPath(String("//h1/root/x:B.k=\" x  y \",n=7,r=\"C.t=TRUE\""))));
    add(CIMValue(CIMObjectPath(String("root/x:B.k=1"))));
    add(CIMValue(Array<Uint16>(2, Uint16(3))));
    add(CIMValue(Array<String>()));
    add(CIMValue(CIMTYPE_STRING, true));
    add(CIMValue(CIMTYPE_REFERENCE, false));
    add(CIMValue(CIMTYPE_INSTANCE, false));
    add(CIMValue(embeddedInstance()));
    add(CIMValue(CIMObject(embeddedInstance())));
    add(CIMValue(Array<CIMInstance>(2, embeddedInstance())));
    return result;
}

CIMQualifier unsharedQualifier(const char* name) {
    return CIMQualifier(CIMName(name), CIMValue(true), CIMFlavor::DISABLEOVERRIDE + CIMFlavor::RESTRICTED);
}

CIMClass classOfEveryKind() {
    CIMClass result(CIMName("C"), CIMName("Super"));
    result.addQualifier(unsharedQualifier("Abstract"));
    result.addProperty(CIMProperty(CIMName("a"), CIMValue(CIMTYPE_SINT8, true, 2), 2));
    result.addProperty(CIMProperty(CIMName("r"), CIMValue(CIMTYPE_REFERENCE, false), 0, CIMName("R")));
    CIMMethod method(CIMName("m"), CIMTYPE_UINT32, CIMName("Origin"), true);
    CIMParameter parameter(CIMName("in"), CIMTYPE_STRING);
    parameter.addQualifier(unsharedQualifier("IN"));
    method.addParameter(parameter);
    method.addParameter(CIMParameter(CIMName("array"), CIMTYPE_STRING, true, 3));
    method.addParameter(CIMParameter(CIMName("reference"), CIMTYPE_REFERENCE, false, 0, CIMName("R")));
    method.addParameter(CIMParameter(CIMName("references"), CIMTYPE_REFERENCE, true, 2, CIMName("R")));
    result.addMethod(method);
    return result;
}

class ObjectWriter : public testing::TestWithParam<XmlLayout> {};

INSTANTIATE_TEST_SUITE_P(Layouts, ObjectWriter, testing::Values(XmlLayout::Sent, XmlLayout::Printed),
                         [](const auto& layout) {
                             return layout.param == XmlLayout::Sent ? "Sent" : "Printed";
                         });

TEST_P(ObjectWriter, WritesInstancesThatReadBackTheSame) {
    const CIMInstance instance = instanceOfEveryKind();
    const CIMInstance again = readBack<cimxml::InstanceReader>(xmlIn(GetParam(), instance));
    ASSERT_EQ(again.getPropertyCount(), instance.getPropertyCount());
    for (Uint32 i = 0; i < instance.getPropertyCount(); ++i) {
        EXPECT_TRUE(again.getProperty(i).identical(instance.getProperty(i))) << "property " << i;
    }
    EXPECT_TRUE(again.identical(instance));
}

TEST_P(ObjectWriter, WritesClassesThatReadBackTheSame) {
    const CIMClass cimClass = classOfEveryKind();
    const std::string xml = xmlIn(GetParam(), cimClass);
    EXPECT_TRUE(readBack<cimxml::ClassReader>(xml).identical(cimClass)) << xml;
}

TEST_P(ObjectWriter, WritesEmbeddedClassesThatReadBackAsSuch) {
    CIMInstance holder{CIMName("A")};
    holder.addProperty(CIMProperty(CIMName("p"), CIMValue(CIMObject(classOfEveryKind()))));
    CIMObject embedded;
    readBack<cimxml::InstanceReader>(xmlIn(GetParam(), holder)).getProperty(0).getValue().get(embedded);
    EXPECT_TRUE(embedded.identical(CIMObject(classOfEveryKind())));
}

// OpenPegasus prints its C library's words for them, which DSP0201 does not know.
TEST_P(ObjectWriter, CallsWhatIsNoNumberAsDsp0201Does) {
    const auto valueText = [](const CIMValue& value) {
        const std::string xml = xmlIn(GetParam(), value);
        return xml.substr(0, xml.find("</") + 2);
    };
    const Real64 infinity = std::numeric_limits<Real64>::infinity();
    const Real64 noNumber = std::numeric_limits<Real64>::quiet_NaN();
    EXPECT_EQ(valueText(CIMValue(infinity)), "<VALUE>INF</");
    EXPECT_EQ(valueText(CIMValue(-infinity)), "<VALUE>-INF</");
    EXPECT_EQ(valueText(CIMValue(noNumber)), "<VALUE>NaN</");
    EXPECT_EQ(valueText(CIMValue(-noNumber)), "<VALUE>NaN</");
    EXPECT_EQ(valueText(CIMValue(static_cast<Real32>(infinity))), "<VALUE>INF</");
}

// OpenPegasus prints TYPE="object" for a method, a type that DSP0201 does not know.
TEST_P(ObjectWriter, TellsWhatMethodsEmbedAsDsp0201Does) {
    CIMClass cimClass(CIMName("C"));
    CIMMethod method(CIMName("m"), CIMTYPE_OBJECT);
    method.addParameter(CIMParameter(CIMName("a"), CIMTYPE_INSTANCE, true, 2));
    cimClass.addMethod(method);
    const std::string xml = xmlIn(GetParam(), cimClass);
    EXPECT_NE(xml.find("<METHOD NAME=\"m\" TYPE=\"string\" EmbeddedObject=\"object\""), std::string::npos)
        << xml;
    EXPECT_NE(xml.find("<PARAMETER.ARRAY NAME=\"a\" TYPE=\"string\" EmbeddedObject=\"instance\""),
              std::string::npos)
        << xml;
}

TEST_P(ObjectWriter, WritesNothingForNoObject) {
    EXPECT_EQ(xmlIn(GetParam(), CIMObject()), "");
}

TEST(SentObject, HasNoByteBetweenItsElements) {
    EXPECT_EQ(xmlIn(XmlLayout::Sent, classOfEveryKind()),
              "<CLASS NAME=\"C\" SUPERCLASS=\"Super\">"
              "<QUALIFIER NAME=\"Abstract\" TYPE=\"boolean\" OVERRIDABLE=\"false\" TOSUBCLASS=\"false\">"
              "<VALUE>TRUE</VALUE></QUALIFIER>"
              "<PROPERTY.ARRAY NAME=\"a\" TYPE=\"sint8\" ARRAYSIZE=\"2\"></PROPERTY.ARRAY>"
              "<PROPERTY.REFERENCE NAME=\"r\" REFERENCECLASS=\"R\"></PROPERTY.REFERENCE>"
              "<METHOD NAME=\"m\" TYPE=\"uint32\" CLASSORIGIN=\"Origin\" PROPAGATED=\"true\">"
              "<PARAMETER NAME=\"in\" TYPE=\"string\">"
              "<QUALIFIER NAME=\"IN\" TYPE=\"boolean\" OVERRIDABLE=\"false\" TOSUBCLASS=\"false\">"
              "<VALUE>TRUE</VALUE></QUALIFIER></PARAMETER>"
              "<PARAMETER.ARRAY NAME=\"array\" TYPE=\"string\" ARRAYSIZE=\"3\"></PARAMETER.ARRAY>"
              "<PARAMETER.REFERENCE NAME=\"reference\" REFERENCECLASS=\"R\"></PARAMETER.REFERENCE>"
              "<PARAMETER.REFARRAY NAME=\"references\" REFERENCECLASS=\"R\" ARRAYSIZE=\"2\">"
              "</PARAMETER.REFARRAY></METHOD></CLASS>");
}

TEST(SentObject, HasThePropertysTypeBeforeItsOrigin) {
    EXPECT_EQ(sentXml(CIMProperty(CIMName("p"), CIMValue(true), 0, CIMName(), CIMName("O"), true)),
              "<PROPERTY NAME=\"p\" TYPE=\"boolean\" CLASSORIGIN=\"O\" PROPAGATED=\"true\">"
              "<VALUE>TRUE</VALUE></PROPERTY>");
}

// What is printed has a second attribute, or a qualifier, beside or in place of the one that DSP0201 knows.
TEST(SentObject, TellsWhatItEmbedsByTheAttributeOfDsp0201Alone) {
    EXPECT_EQ(sentXml(CIMProperty(CIMName("p"), CIMValue(CIMInstance(CIMName("E"))))),
              "<PROPERTY NAME=\"p\" TYPE=\"string\" EmbeddedObject=\"instance\">"
              "<VALUE>&lt;INSTANCE CLASSNAME=&quot;E&quot;&gt;&lt;/INSTANCE&gt;</VALUE></PROPERTY>");
    EXPECT_EQ(sentXml(CIMProperty(CIMName("p"), CIMValue(CIMObject(CIMClass(CIMName("E")))))),
              "<PROPERTY NAME=\"p\" TYPE=\"string\" EmbeddedObject=\"object\">"
              "<VALUE>&lt;CLASS NAME=&quot;E&quot;&gt;&lt;/CLASS&gt;</VALUE></PROPERTY>");
    EXPECT_EQ(sentXml(CIMProperty(CIMName("p"), CIMValue(CIMTYPE_INSTANCE, true))),
              "<PROPERTY.ARRAY NAME=\"p\" TYPE=\"string\" EmbeddedObject=\"instance\"></PROPERTY.ARRAY>");
}

TEST(SentObject, ReferencesWhatAServerWouldDropFromATextOrNotRead) {
    EXPECT_EQ(xmlIn(XmlLayout::Sent, CIMValue(String(" a  b c "))), "<VALUE>&#32;a &#32;b c&#32;</VALUE>");
    EXPECT_EQ(xmlIn(XmlLayout::Sent, CIMValue(Array<String>(1, String(" ")))),
              "<VALUE.ARRAY><VALUE>&#32;</VALUE></VALUE.ARRAY>");
    EXPECT_EQ(xmlIn(XmlLayout::Sent, CIMValue(String("\t\n\r\x1F\x7F"))),
              "<VALUE>&#9;&#10;&#13;&#31;&#127;</VALUE>");
}

}  // namespace
}  // namespace cimxml_test
