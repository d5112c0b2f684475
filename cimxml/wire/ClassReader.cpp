#include "cimxml/wire/ClassReader.h"

#include "cimxml/wire/MethodReader.h"
#include "cimxml/wire/PathReader.h"
#include "cimxml/wire/PropertyReader.h"
#include "cimxml/wire/XmlNode.h"

namespace cimxml {

using namespace Pegasus;

CIMClass ClassReader::read(pugi::xml_node node) {
    if (!isElement(node, "CLASS")) {
        failAt(node, "element CLASS");
    }
    PathReader names(context_);
    CIMClass cimClass(names.readName(node, "NAME"), names.readOptionalName(node, "SUPERCLASS"));
    PropertyReader(context_).addTo(cimClass, node);
    MethodReader(context_).addTo(cimClass, node);
    return cimClass;
}

}  // namespace cimxml
