#include "cimxml/wire/InstanceReader.h"

#include <Pegasus/Common/Exception.h>

#include "cimxml/wire/PathReader.h"
#include "cimxml/wire/PropertyReader.h"
#include "cimxml/wire/QualifierReader.h"
#include "cimxml/wire/XmlNode.h"

namespace cimxml {

using namespace Pegasus;

CIMInstance InstanceReader::read(pugi::xml_node node) {
    if (!isElement(node, "INSTANCE")) {
        failAt(node, "element INSTANCE");
    }
    CIMInstance instance(PathReader(context_).readName(node, "CLASSNAME"));
    QualifierReader(context_).addTo(instance, node);
    PropertyReader(context_).addTo(instance, node);
    return instance;
}

CIMInstance InstanceReader::readNamed(pugi::xml_node node) {
    if (isElement(node, "INSTANCE")) {
        return read(node);
    }
    if (!isElement(node, "VALUE.NAMEDINSTANCE") && !isElement(node, "VALUE.INSTANCEWITHPATH")) {
        failAt(node, "element VALUE.NAMEDINSTANCE");
    }
    const pugi::xml_node path = firstElement(node);
    if (!PathReader::isPath(path)) {
        failAt(node, "an instance path");
    }
    CIMInstance instance = read(requireElement(node, "INSTANCE"));
    try {
        instance.setPath(PathReader(context_).read(path));
    } catch (const TypeMismatchException&) {
        failAt(path, "a path of the instance's own class");
    }
    return instance;
}

}  // namespace cimxml
