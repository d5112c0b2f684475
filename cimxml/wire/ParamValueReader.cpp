#include "cimxml/wire/ParamValueReader.h"

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObject.h>

#include "cimxml/wire/ClassReader.h"
#include "cimxml/wire/InstanceReader.h"
#include "cimxml/wire/PathReader.h"
#include "cimxml/wire/TypeAttribute.h"
#include "cimxml/wire/ValueReader.h"
#include "cimxml/wire/XmlNode.h"

namespace cimxml {

using namespace Pegasus;

CIMParamValue ParamValueReader::read(pugi::xml_node node) {
    const char* name = requireAttribute(node, "NAME");
    if (*name == '\0') {
        failAt(node, "a name in attribute NAME");
    }
    const auto type = typeOf(node);
    const pugi::xml_node content = firstElement(node);
    const CIMValue value = readContent(content, type.value_or(CIMTYPE_STRING));
    const bool typed =
        type.has_value() || (content && !isElement(content, "VALUE") && !isElement(content, "VALUE.ARRAY"));
    return CIMParamValue(toString(name), value, typed);
}

CIMValue ParamValueReader::readReturnValue(pugi::xml_node node) {
    return readContent(firstElement(node), typeOf(node).value_or(CIMTYPE_STRING));
}

std::optional<CIMType> ParamValueReader::typeOf(pugi::xml_node node) {
    const auto type = readParameterType(node);
    if (type.value_or(CIMTYPE_STRING) != CIMTYPE_STRING) {
        return type;
    }
    const auto embedded = readEmbeddedType(node);
    return embedded ? embedded : type;
}

CIMValue ParamValueReader::readContent(pugi::xml_node content, CIMType type) {
    if (!content) {
        return CIMValue(type, false);
    }
    if (PathReader::isPath(content)) {
        return CIMValue(PathReader(context_).read(content));
    }
    if (isElement(content, "CLASS")) {
        return CIMValue(CIMObject(ClassReader(context_).read(content)));
    }
    if (isElement(content, "INSTANCE") || isElement(content, "VALUE.NAMEDINSTANCE")) {
        return CIMValue(InstanceReader(context_).readNamed(content));
    }
    return ValueReader(context_).read(content, type, false);
}

}  // namespace cimxml
