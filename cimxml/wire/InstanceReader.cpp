#include "cimxml/wire/InstanceReader.h"

#include <memory>
#include <utility>

#include "cimxml/common/CIMObjectRep.h"
#include "cimxml/common/HandleAccess.h"
#include "cimxml/wire/PathReader.h"
#include "cimxml/wire/PropertyReader.h"
#include "cimxml/wire/XmlNode.h"

namespace cimxml {

using namespace Pegasus;

CIMInstance InstanceReader::read(pugi::xml_node node) {
    if (!isElement(node, "INSTANCE")) {
        failAt(node, "element INSTANCE");
    }
    return readContent(node, CIMInstance(PathReader(context_).readName(node, "CLASSNAME")));
}

CIMInstance InstanceReader::readNamed(pugi::xml_node node) {
    if (isElement(node, "INSTANCE")) {
        return read(node);
    }
    if (!isElement(node, "VALUE.NAMEDINSTANCE") && !isElement(node, "VALUE.INSTANCEWITHPATH")) {
        failAt(node, "element VALUE.NAMEDINSTANCE");
    }
    const pugi::xml_node pathNode = firstElement(node);
    if (!PathReader::isPath(pathNode)) {
        failAt(node, "an instance path");
    }
    const pugi::xml_node content = requireElement(node, "INSTANCE");
    PathReader names(context_);
    CIMObjectPath path = names.read(pathNode);
    if (!path.getClassName().equal(names.readName(content, "CLASSNAME"))) {
        failAt(pathNode, "a path of the instance's own class");
    }
    return readContent(content,
                       HandleAccess::make<CIMInstance>(std::make_shared<CIMObjectRep>(std::move(path))));
}

CIMInstance InstanceReader::readContent(pugi::xml_node node, CIMInstance instance) {
    PropertyReader(context_).addTo(instance, node);
    return instance;
}

}  // namespace cimxml
