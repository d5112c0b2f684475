#include "tools/snapshot/NodeRecord.h"

#include <Pegasus/Common/CIMQualifier.h>
#include <gmock/gmock.h>

#include "cimom/snapshot/Snapshot.h"

namespace tool {

namespace {

using Pegasus::CIMClass;
using Pegasus::CIMInstance;
using Pegasus::CIMName;
using Pegasus::CIMProperty;
using Pegasus::CIMValue;
using Pegasus::String;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

CIMProperty textProperty(const char* name, const char* value) {
    return {CIMName(name), CIMValue(String(value))};
}

CIMClass keyedClass(const char* name) {
    CIMProperty key(CIMName("Id"), CIMValue(Pegasus::CIMTYPE_STRING, false));
    key.addQualifier(Pegasus::CIMQualifier(CIMName("Key"), CIMValue(true)));
    CIMClass definition{CIMName(name)};
    definition.addProperty(key);
    return definition;
}

std::string documentOf(const NodeRecord& record, NodeRecord::Count& count) {
    std::string text = "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">";
    count = record.write(text, "root/cimv2");
    return text + "</CIM>";
}

}  // namespace

TEST(NodeRecord, DeclaresEachClassAfterItsSuperclass) {
    NodeRecord record;
    record.add(CIMClass(CIMName("C"), CIMName("b")));
    record.add(CIMClass(CIMName("B"), CIMName("A")));
    record.add(keyedClass("A"));
    NodeRecord::Count count;
    const std::string text = documentOf(record, count);
    EXPECT_EQ(count.classes, 3U);
    EXPECT_THAT(count.orphans, IsEmpty());
    EXPECT_NO_THROW(cimom::readSnapshot(text, "text"));
}

TEST(NodeRecord, LeavesOutClassesWithoutTheirSuperclassAndTheirInstances) {
    NodeRecord record;
    record.add(keyedClass("A"));
    record.add(CIMClass(CIMName("Lost"), CIMName("Nowhere")));
    record.add(CIMClass(CIMName("Round"), CIMName("About")));
    record.add(CIMClass(CIMName("About"), CIMName("Round")));
    record.add(CIMInstance(CIMName("Lost")));
    record.add(CIMInstance(CIMName("Unheard")));
    NodeRecord::Count count;
    const std::string text = documentOf(record, count);
    EXPECT_EQ(count.classes, 1U);
    EXPECT_EQ(count.instances, 0U);
    EXPECT_EQ(count.strays, 2U);
    EXPECT_THAT(count.orphans, ElementsAre("About", "Lost", "Round"));
    EXPECT_NO_THROW(cimom::readSnapshot(text, "text"));
}

TEST(NodeRecord, LeavesOutAnInstanceThatNothingTellsApart) {
    NodeRecord record;
    record.add(keyedClass("A"));
    record.add(CIMClass(CIMName("B"), CIMName("A")));
    record.add(CIMInstance(CIMName("B")));
    CIMInstance known{CIMName("B")};
    known.addProperty(textProperty("Id", "1"));
    record.add(known);
    NodeRecord::Count count;
    const std::string text = documentOf(record, count);
    EXPECT_EQ(count.instances, 1U);
    EXPECT_EQ(count.strays, 1U);
    EXPECT_NO_THROW(cimom::readSnapshot(text, "text"));
}

TEST(NodeRecord, LeavesOutPropertiesThatNoClassDeclares) {
    NodeRecord record;
    record.add(keyedClass("A"));
    record.add(CIMClass(CIMName("B"), CIMName("A")));
    CIMInstance instance{CIMName("B")};
    instance.addProperty(textProperty("Id", "1"));
    instance.addProperty(textProperty("Extra", "of a faulty server"));
    record.add(instance);
    NodeRecord::Count count;
    const std::string text = documentOf(record, count);
    EXPECT_EQ(count.instances, 1U);
    EXPECT_THAT(text, Not(HasSubstr("Extra")));
    EXPECT_NO_THROW(cimom::readSnapshot(text, "text"));
}

TEST(NodeRecord, KeepsNoHostOfAReferenceAndItsNamespaceOnlyWhenItIsAnother) {
    NodeRecord record;
    CIMClass definition = keyedClass("A");
    for (const char* name : {"Near", "Far"}) {
        definition.addProperty(
            CIMProperty(CIMName(name), CIMValue(Pegasus::CIMTYPE_REFERENCE, false), 0, CIMName("A")));
    }
    record.add(definition);
    CIMInstance instance{CIMName("A")};
    instance.addProperty(textProperty("Id", "1"));
    const auto reference = [](const char* path) { return CIMValue(Pegasus::CIMObjectPath(String(path))); };
    instance.addProperty(
        CIMProperty(CIMName("Near"), reference("//bmc1.example/root/CIMV2:A.Id=\"2\""), 0, CIMName("A")));
    instance.addProperty(
        CIMProperty(CIMName("Far"), reference("//bmc1.example/root/far:A.Id=\"3\""), 0, CIMName("A")));
    record.add(instance);
    NodeRecord::Count count;
    const std::string text = documentOf(record, count);
    EXPECT_THAT(text, Not(HasSubstr("bmc1")));
    EXPECT_THAT(text, HasSubstr("<VALUE.REFERENCE><INSTANCENAME CLASSNAME=\"A\">"));
    EXPECT_THAT(text, HasSubstr("<NAMESPACE NAME=\"far\"/></LOCALNAMESPACEPATH><INSTANCENAME"));
    EXPECT_NO_THROW(cimom::readSnapshot(text, "text"));
}

TEST(NodeRecord, PutsAReplacementWhereXmlHasNoRoomForACharacter) {
    NodeRecord record;
    record.add(keyedClass("A"));
    CIMInstance instance{CIMName("A")};
    instance.addProperty(textProperty("Id", "a\x01z\xEF\xBF\xBF!"));
    record.add(instance);
    NodeRecord::Count count;
    const std::string text = documentOf(record, count);
    EXPECT_THAT(text, HasSubstr("a\xEF\xBF\xBDz\xEF\xBF\xBD!"));
    EXPECT_NO_THROW(cimom::readSnapshot(text, "text"));
}

}  // namespace tool
