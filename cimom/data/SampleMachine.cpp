#include "cimom/data/SampleMachine.h"

#include "cimom/common/Xml.h"
#include "cimom/data/EmbeddedData.h"

namespace cimom {
namespace {

void replaceAll(std::string& text, const std::string& what, const std::string& with) {
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size())) {
        text.replace(at, what.size(), with);
    }
}

pugi::xml_node valueOf(const pugi::xpath_node& property) {
    return property.node().child("VALUE");
}

void giveOwnNumbers(pugi::xml_document& document, unsigned nodeIndex) {
    const auto number = document.select_node(
        "//INSTANCE[@CLASSNAME='OMC_UnitaryComputerSystem']"
        "/PROPERTY[@NAME='NodeNumber']");
    valueOf(number).text().set(nodeIndex);
    for (const auto& reading : document.select_nodes("//PROPERTY[@NAME='CurrentReading'][VALUE]")) {
        valueOf(reading).text().set(valueOf(reading).text().as_int() + static_cast<int>(nodeIndex % 5) + 1);
    }
}

/// A further node, made after a prepared one: its name and serial number, in whose texts stand "node-0" and
/// "-N0", its number and its readings give way to others.
std::string madeNode(unsigned nodeIndex) {
    std::string xml = nodeXml(nodeIndex % kPreparedNodes);
    const std::string old = std::to_string(nodeIndex % kPreparedNodes);
    const std::string own = std::to_string(nodeIndex);
    replaceAll(xml, "node-" + old + ".", "node-" + own + ".");
    replaceAll(xml, "-N" + old + "<", "-N" + own + "<");
    pugi::xml_document document;
    parseXml(xml, document);
    giveOwnNumbers(document, nodeIndex);
    std::string made;
    appendElement(made, firstElement(document));
    return made;
}

}  // namespace

std::vector<SampleText> sampleMachineNode(unsigned nodeIndex) {
    const std::string number = std::to_string(nodeIndex);
    return {
        {"schema.xml", schemaXml()},
        {"node" + number + ".xml", nodeIndex < kPreparedNodes ? nodeXml(nodeIndex) : madeNode(nodeIndex)}};
}

}  // namespace cimom
