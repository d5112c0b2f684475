#include "cimxml/wire/MethodReader.h"

#include <Pegasus/Common/Exception.h>

#include "cimxml/wire/PathReader.h"
#include "cimxml/wire/QualifierReader.h"
#include "cimxml/wire/TypeAttribute.h"
#include "cimxml/wire/XmlNode.h"

namespace cimxml {

using namespace Pegasus;

CIMMethod MethodReader::read(pugi::xml_node node) {
    PathReader names(context_);
    // A method without a type returns nothing (DSP0201); the API has no such type, and nearly every method
    // returns a uint32.
    const Attributes attributes(node);
    CIMMethod method(
        names.readName(attributes, "NAME"), readParameterType(attributes).value_or(CIMTYPE_UINT32),
        names.readOptionalName(attributes, "CLASSORIGIN"), booleanAttribute(attributes, "PROPAGATED", false));
    QualifierReader(context_).addTo(method, node);
    for (pugi::xml_node child = firstElement(node); child; child = nextElement(child)) {
        if (isElement(child, "QUALIFIER")) {
            continue;
        }
        try {
            method.addParameter(readParameter(child));
        } catch (const AlreadyExistsException&) {
            failAt(child, "each parameter once");
        } catch (const TypeMismatchException&) {
            failAt(child, "a reference's class in attribute REFERENCECLASS");
        }
    }
    return method;
}

CIMParameter MethodReader::readParameter(pugi::xml_node node) {
    const bool reference = isElement(node, "PARAMETER.REFERENCE") || isElement(node, "PARAMETER.REFARRAY");
    const bool array = isElement(node, "PARAMETER.ARRAY") || isElement(node, "PARAMETER.REFARRAY");
    if (!reference && !array && !isElement(node, "PARAMETER")) {
        failAt(node, "a parameter");
    }
    PathReader names(context_);
    const Attributes attributes(node);
    CIMParameter parameter(names.readName(attributes, "NAME"),
                           reference ? CIMTYPE_REFERENCE : readType(attributes), array,
                           array ? readArraySize(attributes) : 0,
                           reference ? names.readOptionalName(attributes, "REFERENCECLASS") : CIMName());
    QualifierReader(context_).addTo(parameter, node);
    return parameter;
}

void MethodReader::addTo(CIMClass& owner, pugi::xml_node node) {
    for (pugi::xml_node child = firstElement(node); child; child = nextElement(child)) {
        if (!isElement(child, "METHOD")) {
            continue;
        }
        try {
            owner.addMethod(read(child));
        } catch (const AlreadyExistsException&) {
            failAt(child, "each method once");
        }
    }
}

}  // namespace cimxml
