#include "cimxml/wire/PropertyReader.h"

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>

#include <string>

#include "cimxml/wire/Ascii.h"
#include "cimxml/wire/PathReader.h"
#include "cimxml/wire/QualifierReader.h"
#include "cimxml/wire/Scalars.h"
#include "cimxml/wire/TypeAttribute.h"
#include "cimxml/wire/ValueReader.h"
#include "cimxml/wire/XmlNode.h"

namespace cimxml {

using namespace Pegasus;

namespace {

/// The size of a fixed-size array. A value of another size overrules it.
Uint32 sizeFor(pugi::xml_node node, const CIMValue& value) {
    const Uint32 size = readArraySize(node);
    return value.isArray() && (value.isNull() || value.getArraySize() == size) ? size : 0;
}

/// The text of a qualifier's value.
std::string qualifierText(pugi::xml_node qualifier) {
    const pugi::xml_node value = firstElement(qualifier);
    std::string joined;
    return isElement(value, "VALUE") ? std::string(trim(textOf(value, joined))) : std::string();
}

}  // namespace

bool PropertyReader::isProperty(pugi::xml_node node) {
    return std::string_view(node.name()).substr(0, 8) == "PROPERTY";
}

CIMProperty PropertyReader::read(pugi::xml_node node) {
    PathReader names(context_);
    const bool array = isElement(node, "PROPERTY.ARRAY");
    const CIMValue value = readValue(node, typeOf(node), array);
    CIMProperty property(
        names.readName(node, "NAME"), value, sizeFor(node, value),
        value.getType() == CIMTYPE_REFERENCE ? names.readOptionalName(node, "REFERENCECLASS") : CIMName(),
        names.readOptionalName(node, "CLASSORIGIN"), booleanAttribute(node, "PROPAGATED", false));
    QualifierReader(context_).addTo(property, node);
    return property;
}

CIMValue PropertyReader::readValue(pugi::xml_node node, CIMType type, bool array) {
    for (pugi::xml_node child = firstElement(node); child; child = nextElement(child)) {
        if (!isElement(child, "QUALIFIER")) {
            return ValueReader(context_).read(child, type, array);
        }
    }
    return CIMValue(type, array, array ? readArraySize(node) : 0);
}

CIMType PropertyReader::typeOf(pugi::xml_node node) {
    if (isElement(node, "PROPERTY.REFERENCE")) {
        return CIMTYPE_REFERENCE;
    }
    const CIMType type = readType(node);
    if (type != CIMTYPE_STRING) {
        return type;
    }
    return readEmbeddedType(node).value_or(embeddedByQualifier(node));
}

/// Servers of the time before the EmbeddedObject attribute say it with a qualifier.
CIMType PropertyReader::embeddedByQualifier(pugi::xml_node node) {
    for (pugi::xml_node child = firstElement(node); child; child = nextElement(child)) {
        const char* name = isElement(child, "QUALIFIER") ? attribute(child, "NAME") : nullptr;
        if (name == nullptr) {
            continue;
        }
        if (equalNoCase(name, "EmbeddedObject") && parseBoolean(qualifierText(child)).value_or(false)) {
            return CIMTYPE_OBJECT;
        }
        if (equalNoCase(name, "EmbeddedInstance") && !qualifierText(child).empty()) {
            return CIMTYPE_INSTANCE;
        }
    }
    return CIMTYPE_STRING;
}

template <typename Owner>
void PropertyReader::addTo(Owner& owner, pugi::xml_node node) {
    const bool isClass = isElement(node, "CLASS");
    for (pugi::xml_node child = firstElement(node); child; child = nextElement(child)) {
        if (isElement(child, "QUALIFIER") || (isClass && isElement(child, "METHOD"))) {
            continue;
        }
        if (!isProperty(child)) {
            failAt(child, "qualifiers, properties and methods only");
        }
        try {
            owner.addProperty(read(child));
        } catch (const AlreadyExistsException&) {
            failAt(child, "each property once");
        } catch (const TypeMismatchException&) {
            failAt(child, "a reference's class in attribute REFERENCECLASS");
        }
    }
}

template void PropertyReader::addTo(CIMClass&, pugi::xml_node);
template void PropertyReader::addTo(CIMInstance&, pugi::xml_node);

}  // namespace cimxml
