#include "cimom/snapshot/Snapshot.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <pugixml.hpp>
#include <stdexcept>

#include "cimom/data/RepositoryData.h"
#include "cimom/schema/ClassWriter.h"
#include "tests/cimom/support/Gzipped.h"
#include "tests/cimom/support/Requests.h"

namespace cimom {
namespace {

using test::instanceNameXml;
using test::keyXml;
using Nodes = std::vector<std::shared_ptr<Repository>>;

const char* const kHead = "<?xml version=\"1.0\"?>\n<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">\n";
const char* const kFan =
    "<VALUE.NAMEDOBJECT><CLASS NAME=\"Fan\"><PROPERTY NAME=\"Id\" TYPE=\"string\"><QUALIFIER NAME=\"Key\" "
    "TYPE=\"boolean\"/>"
    "</PROPERTY><PROPERTY NAME=\"Speed\" TYPE=\"uint32\"/></CLASS></VALUE.NAMEDOBJECT>\n";

std::string fan(const std::string& id, const std::string& speed) {
    return "<VALUE.NAMEDOBJECT>" + instanceNameXml("Fan", keyXml("Id", id)) +
           "<INSTANCE CLASSNAME=\"Fan\"><PROPERTY NAME=\"Speed\" TYPE=\"uint32\"><VALUE>" + speed +
           "</VALUE></PROPERTY></INSTANCE></VALUE.NAMEDOBJECT>\n";
}

std::string group(const std::string& nameSpace, const std::string& content) {
    return "<DECLGROUP.WITHNAME><LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/><NAMESPACE NAME=\"" +
           nameSpace + "\"/></LOCALNAMESPACEPATH>\n" + content + "</DECLGROUP.WITHNAME>\n";
}

std::string node(const std::string& groups) {
    return "<DECLARATION>\n" + groups + "</DECLARATION>\n";
}

std::string machine(const std::string& nodes) {
    return kHead + nodes + "</CIM>\n";
}

/// Speeds of the fans in a namespace of a node; "-" when there is no such namespace.
std::string speedsOf(const Nodes& nodes, std::size_t index, const std::string& nameSpace) {
    NameSpace* space = nodes.at(index)->data().find(nameSpace);
    std::string speeds = space == nullptr ? "-" : "";
    for (std::size_t i = 0; space != nullptr && i < space->instances.all().size(); ++i) {
        speeds += space->instances.all()[i]->valueOf("Speed") + " ";
    }
    return speeds;
}

std::string whyNot(const std::string& file) {
    try {
        readSnapshot(file, "machine.cim.gz");
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "";
}

TEST(Snapshot, HasARepositoryForEachNodeWithTheNamespacesThatItNames) {
    const std::string text =
        machine(node(group("a", kFan + fan("1", "10") + fan("2", "20")) + group("b", kFan)) + node("") +
                node(group("a", kFan + fan("1", "30"))));
    for (const std::string& file : {text, test::gzipped(text)}) {
        const Nodes nodes = readSnapshot(file, "machine");
        ASSERT_EQ(nodes.size(), 3U);
        EXPECT_EQ(speedsOf(nodes, 0, "root/a"), "10 20 ");
        EXPECT_EQ(speedsOf(nodes, 0, "root/b"), "");
        EXPECT_EQ(speedsOf(nodes, 0, "root/c"), "-");
        EXPECT_EQ(speedsOf(nodes, 1, "root/a"), "-");
        EXPECT_EQ(speedsOf(nodes, 2, "ROOT/A"), "30 ");
    }
}

TEST(Snapshot, AddsAGroupToAnEarlierOneOfTheSameNamespace) {
    const Nodes nodes = readSnapshot(
        machine(node(group("a", kFan + fan("1", "10")) + group("A", fan("2", "20") + fan("1", "11")))), "");
    EXPECT_EQ(speedsOf(nodes, 0, "root/a"), "11 20 ");
}

/// Memory for XML that is overwritten before it is given back, so that what is still used of it shows.
constexpr std::size_t kBlockHead = alignof(std::max_align_t);

void* takeMarkedBlock(std::size_t size) {
    char* const block = static_cast<char*>(std::malloc(size + kBlockHead));
    std::memcpy(block, &size, sizeof size);
    return block + kBlockHead;
}

void overwriteBlock(void* memory) {
    char* const block = static_cast<char*>(memory) - kBlockHead;
    std::size_t size = 0;
    std::memcpy(&size, block, sizeof size);
    std::memset(memory, 'x', size);
    std::free(block);
}

class OverwrittenXml {
public:
    OverwrittenXml() { pugi::set_memory_management_functions(takeMarkedBlock, overwriteBlock); }
    ~OverwrittenXml() { pugi::set_memory_management_functions(std::malloc, std::free); }
    OverwrittenXml(const OverwrittenXml&) = delete;
    OverwrittenXml& operator=(const OverwrittenXml&) = delete;
};

TEST(Snapshot, NeedsItsTextNoMoreOnceItIsRead) {
    const OverwrittenXml overwritten;
    auto text = std::make_unique<std::string>(machine(node(group("a", kFan + fan("1", "10")))));
    const Nodes nodes = readSnapshot(*text, "machine");
    text.reset();
    NameSpace& space = *nodes[0]->data().find("root/a");
    std::string xml;
    appendClass(xml, *space.classes.find("Fan"), ClassOptions());
    EXPECT_EQ(xml,
              "<CLASS NAME=\"Fan\"><PROPERTY NAME=\"Id\" TYPE=\"string\"><QUALIFIER NAME=\"Key\" "
              "TYPE=\"boolean\"></QUALIFIER>"
              "</PROPERTY><PROPERTY NAME=\"Speed\" TYPE=\"uint32\"></PROPERTY></CLASS>");
}

TEST(Snapshot, IsWhatItsPageShows) {
    std::ifstream page(CIMHTTP_DOCS "/snapshot.md", std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(page), std::istreambuf_iterator<char>()};
    const auto start = text.find("<?xml");
    ASSERT_NE(start, std::string::npos);
    const Nodes nodes = readSnapshot(text.substr(start, text.find("```", start) - start), "snapshot.md");
    ASSERT_EQ(nodes.size(), 2U);
    EXPECT_EQ(speedsOf(nodes, 0, "root/cimv2"), "4200 ");
}

TEST(Snapshot, SaysWhereItIsWrong) {
    EXPECT_EQ(whyNot(""), "machine.cim.gz:1: No document element found");
    EXPECT_EQ(whyNot(machine("")), "machine.cim.gz:1: no CIM element with a DECLARATION in it");
    EXPECT_EQ(whyNot(machine("<DECLARATION>")).substr(0, 17), "machine.cim.gz:3:");
    EXPECT_EQ(whyNot(machine(node("") + "<MESSAGE/>")),
              "machine.cim.gz:5: 'MESSAGE' where a DECLARATION was expected");
    EXPECT_EQ(whyNot("<CIM CIMVERSION=\"2.0\"><DECLARATION/></CIM>"),
              "machine.cim.gz:1: DTDVERSION is not 2.x");
    EXPECT_EQ(whyNot("<CIM CIMVERSION=\"3.0\" DTDVERSION=\"2.0\"><DECLARATION/></CIM>"),
              "machine.cim.gz:1: CIMVERSION is not 2.x");
    EXPECT_EQ(whyNot(machine(node("<DECLGROUP.WITHNAME/>"))),
              "machine.cim.gz:4: DECLGROUP.WITHNAME without a namespace");
    EXPECT_EQ(whyNot(machine(node(group("a", kFan) + "<CLASS/>"))),
              "machine.cim.gz:7: CLASS without a namespace");
    EXPECT_EQ(whyNot(machine(node(group("a", fan("1", "1"))))),
              "machine.cim.gz:5: the class 'Fan' of an instance is not declared");
    EXPECT_EQ(whyNot(machine(node("") +
                             node(group("a", kFan + std::string("<VALUE.NAMEDOBJECT>\n<CLASS NAME=\"B\" "
                                                                "SUPERCLASS=\"A\"/></VALUE.NAMEDOBJECT>"))))),
              "machine.cim.gz:8: the superclass 'A' is not declared");
}

TEST(Snapshot, RefusesWhatIsOfAnotherClassThanItsPath) {
    const std::string other = "<VALUE.NAMEDOBJECT>" + instanceNameXml("Wing", keyXml("Id", "1")) +
                              "<INSTANCE CLASSNAME=\"Fan\"/></VALUE.NAMEDOBJECT>";
    EXPECT_EQ(whyNot(machine(node(group("a", kFan + other)))),
              "machine.cim.gz:6: an instance of 'Fan' with a path of 'Wing'");
}

TEST(Snapshot, SaysAtWhichByteItsCompressionIsWrong) {
    const std::string file = test::gzipped(machine(node("")));
    EXPECT_EQ(whyNot(file.substr(0, 20)), "machine.cim.gz: the compressed data end early, at byte 20");
}

TEST(Snapshot, HasSoManyNodesAtMost) {
    std::string nodes;
    for (std::size_t i = 0; i < kMaxSnapshotNodes; ++i) {
        nodes += node("");
    }
    EXPECT_EQ(whyNot(machine(nodes)), "");
    EXPECT_EQ(whyNot(machine(nodes + node(""))), "machine.cim.gz:131: more than 64 nodes");
}

}  // namespace
}  // namespace cimom
