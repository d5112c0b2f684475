#include "cimxml/wire/EmbeddedReader.h"

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>

#include <string>

#include "cimxml/wire/ClassReader.h"
#include "cimxml/wire/InstanceReader.h"
#include "cimxml/wire/WireError.h"
#include "cimxml/wire/XmlDocument.h"
#include "cimxml/wire/XmlNode.h"

namespace cimxml {

using namespace Pegasus;

namespace {

/// Counts a level for as long as it lives.
class Level {
public:
    explicit Level(unsigned& level) : level_(++level) {}
    ~Level() { --level_; }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;

private:
    unsigned& level_;
};

}  // namespace

CIMObject EmbeddedReader::read(pugi::xml_node value) {
    const Level level(context_.embeddedLevel);
    if (context_.embeddedLevel > context_.limits.embeddedLevels) {
        failAt(value, "at most " + std::to_string(context_.limits.embeddedLevels) +
                          " embedded objects inside each other");
    }
    try {
        return readDocument(value);
    } catch (const WireError& error) {
        failAt(value, std::string("an embedded object; in its text: ") + error.what());
    }
}

CIMObject EmbeddedReader::readDocument(pugi::xml_node value) {
    std::string joined;
    const XmlDocument document(std::string(textOf(value, joined)), context_);
    const pugi::xml_node root = document.root();
    if (isElement(root, "INSTANCE")) {
        return CIMObject(InstanceReader(context_).read(root));
    }
    if (isElement(root, "CLASS")) {
        return CIMObject(ClassReader(context_).read(root));
    }
    failAt(root, "element INSTANCE or CLASS");
}

}  // namespace cimxml
