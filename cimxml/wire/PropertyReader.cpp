#include "cimxml/wire/PropertyReader.h"

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>

#include <cstring>
#include <string>
#include <string_view>
#include <utility>

#include "cimxml/common/CIMObjectRep.h"
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

constexpr std::string_view propertyElement = "PROPERTY";  // how the names of all three begin

/// The size of a fixed-size array. A value of another size overrules it.
Uint32 sizeFor(const Attributes& node, const CIMValue& value) {
    if (!value.isArray()) {
        return 0;
    }
    const Uint32 size = readArraySize(node);
    return value.isNull() || value.getArraySize() == size ? size : 0;
}

struct Children {
    std::size_t count = 0;
    bool hasQualifiers = false;
};

Children childrenOf(pugi::xml_node node) {
    Children children;
    for (pugi::xml_node child = node.first_child(); child; child = child.next_sibling()) {
        ++children.count;
        children.hasQualifiers = children.hasQualifiers || isElement(child, "QUALIFIER");
    }
    return children;
}

/// The text of a qualifier's value.
std::string qualifierText(pugi::xml_node qualifier) {
    const pugi::xml_node value = firstElement(qualifier);
    std::string joined;
    return isElement(value, "VALUE") ? std::string(trim(textOf(value, joined))) : std::string();
}

}  // namespace

PropertyReader::Parts PropertyReader::partsOf(pugi::xml_node node) {
    Parts parts;
    const char* const kind = node.name() + propertyElement.size();
    if (*kind != '\0') {
        parts.kind = std::strcmp(kind, ".ARRAY") == 0       ? Kind::Array
                     : std::strcmp(kind, ".REFERENCE") == 0 ? Kind::Reference
                                                            : Kind::Scalar;
    }
    for (pugi::xml_node child = firstElement(node); child; child = nextElement(child)) {
        if (isElement(child, "QUALIFIER")) {
            parts.hasQualifiers = true;
        } else if (!parts.value) {
            parts.value = child;
        }
    }
    return parts;
}

bool PropertyReader::isProperty(pugi::xml_node node) {
    return std::strncmp(node.name(), propertyElement.data(), propertyElement.size()) == 0;
}

CIMProperty PropertyReader::read(pugi::xml_node node, PropertyBlock& block) {
    PathReader names(context_);
    const Attributes attributes(node);
    const Parts parts = partsOf(node);
    KnownName& name = names.findName(attributes, "NAME");
    CIMValue value = readValue(attributes, parts, name);
    const Uint32 size = sizeFor(attributes, value);
    const bool isReference = value.getType() == CIMTYPE_REFERENCE;
    CIMProperty property = block.make(
        name.name, std::move(value), size,
        isReference ? names.readOptionalName(attributes, "REFERENCECLASS") : CIMName(),
        names.readOptionalName(attributes, "CLASSORIGIN"), booleanAttribute(attributes, "PROPAGATED", false));
    if (parts.hasQualifiers) {
        QualifierReader(context_).addTo(property, node);
    }
    return property;
}

CIMValue PropertyReader::readValue(const Attributes& node, const Parts& parts, KnownName& name) {
    const bool array = parts.kind == Kind::Array;
    const CIMType type = typeOf(node, parts);
    if (parts.value) {
        return ValueReader(context_).readAgain(parts.value, type, array, name);
    }
    return CIMValue(type, array, array ? readArraySize(node) : 0);
}

CIMType PropertyReader::typeOf(const Attributes& node, const Parts& parts) {
    if (parts.kind == Kind::Reference) {
        return CIMTYPE_REFERENCE;
    }
    const CIMType type = readType(node);
    if (type != CIMTYPE_STRING) {
        return type;
    }
    const auto embedded = readEmbeddedType(node);
    if (embedded || !parts.hasQualifiers) {
        return embedded.value_or(CIMTYPE_STRING);
    }
    return embeddedByQualifier(node.element());
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
    const Children children = childrenOf(node);
    if (children.hasQualifiers) {
        QualifierReader(context_).addTo(owner, node);
    }
    CIMObjectRep& object = HandleAccess::rep(owner);
    object.properties.reserve(static_cast<Uint32>(children.count));
    PropertyBlock block(children.count);
    for (pugi::xml_node child = firstElement(node); child; child = nextElement(child)) {
        if (isElement(child, "QUALIFIER") || (isClass && isElement(child, "METHOD"))) {
            continue;
        }
        if (!isProperty(child)) {
            failAt(child, "qualifiers, properties and methods only");
        }
        try {
            object.addProperty(read(child, block));
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
