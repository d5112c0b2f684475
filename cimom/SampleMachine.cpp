#include "cimom/SampleMachine.h"

#include "cimom/EmbeddedData.h"

namespace cimom {
namespace {

void replaceAll(std::string& text, const std::string& what, const std::string& with) {
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size())) {
        text.replace(at, what.size(), with);
    }
}

/// A further node, made after the first: the name and number of that node, which stand in its texts as
/// "node-0" and in its serial numbers as "-N0", give way to its own.
std::string madeNode(unsigned nodeIndex) {
    std::string xml = kNodeXml[nodeIndex % kPreparedNodes];
    const std::string old = std::to_string(nodeIndex % kPreparedNodes);
    const std::string own = std::to_string(nodeIndex);
    replaceAll(xml, "node-" + old, "node-" + own);
    replaceAll(xml, "-N" + old, "-N" + own);
    return xml;
}

}  // namespace

std::vector<SampleText> sampleMachineNode(unsigned nodeIndex) {
    const std::string number = std::to_string(nodeIndex);
    return {{"schema.xml", kSchemaXml}, {"node" + number + ".xml", madeNode(nodeIndex)}};
}

}  // namespace cimom
