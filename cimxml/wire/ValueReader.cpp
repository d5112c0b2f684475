#include "cimxml/wire/ValueReader.h"

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObject.h>
#include <Pegasus/Common/CIMObjectPath.h>

#include <optional>
#include <string>

#include "cimxml/wire/Ascii.h"
#include "cimxml/wire/EmbeddedReader.h"
#include "cimxml/wire/PathReader.h"
#include "cimxml/wire/Scalars.h"
#include "cimxml/wire/XmlNode.h"

namespace cimxml {

using namespace Pegasus;

namespace {

std::optional<String> parseString(std::string_view text) {
    return toString(text);
}

/// Calls `visit` with the function that parses texts of `type`; every type but references and embedded
/// objects has one.
template <typename Visit>
CIMValue withParser(CIMType type, Visit visit) {
    switch (type) {
        case CIMTYPE_BOOLEAN:
            return visit(parseBoolean);
        case CIMTYPE_UINT8:
            return visit(parseInteger<Uint8>);
        case CIMTYPE_SINT8:
            return visit(parseInteger<Sint8>);
        case CIMTYPE_UINT16:
            return visit(parseInteger<Uint16>);
        case CIMTYPE_SINT16:
            return visit(parseInteger<Sint16>);
        case CIMTYPE_UINT32:
            return visit(parseInteger<Uint32>);
        case CIMTYPE_SINT32:
            return visit(parseInteger<Sint32>);
        case CIMTYPE_UINT64:
            return visit(parseInteger<Uint64>);
        case CIMTYPE_SINT64:
            return visit(parseInteger<Sint64>);
        case CIMTYPE_REAL32:
            return visit(parseReal<Real32>);
        case CIMTYPE_REAL64:
            return visit(parseReal<Real64>);
        case CIMTYPE_CHAR16:
            return visit(parseChar16);
        case CIMTYPE_DATETIME:
            return visit(parseDateTime);
        default:
            return visit(parseString);
    }
}

/// The value in a VALUE element.
template <typename Parse>
auto parseElement(pugi::xml_node node, CIMType type, Parse parse) {
    std::string joined;
    const std::string_view text = textOf(node, joined);
    auto value = parse(text);
    if (!value) {
        failAt(node, std::string("a value of type ") + cimTypeToString(type) + ", found " + quote(text));
    }
    return std::move(*value);
}

bool isEmpty(pugi::xml_node node) {
    std::string joined;
    return trim(textOf(node, joined)).empty();
}

bool isNullElement(pugi::xml_node node, CIMType type) {
    return isElement(node, "VALUE.NULL") || (type == CIMTYPE_BOOLEAN && isEmpty(node));
}

void requireValueElement(pugi::xml_node node) {
    if (!isElement(node, "VALUE") && !isElement(node, "VALUE.NULL")) {
        failAt(node, "element VALUE or VALUE.NULL");
    }
}

template <typename T>
CIMValue arrayOfOne(const CIMValue& scalar) {
    T element;
    scalar.get(element);
    return CIMValue(Array<T>(1, element));
}

/// Stands for a null element of an array of embedded objects.
CIMObject nullObject() {
    return CIMObject(CIMInstance(CIMName("CIM_Null")));
}

bool isEmbedded(CIMType type) {
    return type == CIMTYPE_OBJECT || type == CIMTYPE_INSTANCE;
}

/// Appends the text of a VALUE element and a NUL; false when it is no such element, or one with more than a
/// text.
bool appendText(pugi::xml_node node, std::string& texts) {
    if (!isElement(node, "VALUE") || node.first_child()) {
        return false;
    }
    texts.append(node.value()).push_back('\0');
    return true;
}

/// The texts in a VALUE or VALUE.ARRAY element, each with a NUL behind it; false when there is anything else
/// in it, or more than is worth remembering.
bool collectTexts(pugi::xml_node node, std::string& texts) {
    constexpr std::size_t longest = 512;
    texts.clear();
    if (appendText(node, texts)) {
        return texts.size() <= longest;
    }
    if (!isElement(node, "VALUE.ARRAY") || *node.value() != '\0') {
        return false;
    }
    for (pugi::xml_node child = node.first_child(); child; child = child.next_sibling()) {
        if (!appendText(child, texts) || texts.size() > longest) {
            return false;
        }
    }
    return true;
}

}  // namespace

CIMValue ValueReader::read(pugi::xml_node node, CIMType type, bool array) {
    if (isElement(node, "VALUE")) {
        // An array of one, sent without its brackets.
        return array ? readArray(node.parent(), type) : readScalar(node, type);
    }
    if (isElement(node, "VALUE.ARRAY")) {
        return readArray(node, type);
    }
    if (isElement(node, "VALUE.REFERENCE")) {
        const CIMValue reference(PathReader(context_).readReference(node));
        return array ? arrayOfOne<CIMObjectPath>(reference) : reference;
    }
    if (isElement(node, "VALUE.REFARRAY")) {
        return readReferences(node);
    }
    if (isElement(node, "VALUE.NULL")) {
        return CIMValue(type, array);
    }
    failAt(node, "a value");
}

CIMValue ValueReader::readAgain(pugi::xml_node node, CIMType type, bool array, KnownName& name) {
    if (isEmbedded(type) || !collectTexts(node, context_.texts)) {
        return read(node, type, array);
    }
    if (const CIMValue* known = name.recall(context_.texts, type, array)) {
        return *known;
    }
    CIMValue value = read(node, type, array);
    name.remember(context_.texts, value);
    return value;
}

CIMValue ValueReader::readScalar(pugi::xml_node node, CIMType type) {
    if (isEmbedded(type)) {
        return readEmbedded(node, type);
    }
    if (isNullElement(node, type)) {
        return CIMValue(type, false);
    }
    return withParser(type, [&](auto parse) { return CIMValue(parseElement(node, type, parse)); });
}

CIMValue ValueReader::readArray(pugi::xml_node node, CIMType type) {
    if (isEmbedded(type)) {
        return readEmbeddedArray(node, type);
    }
    return withParser(type, [&](auto parse) {
        using Element = typename decltype(parse(std::string_view()))::value_type;
        Array<Element> values;
        for (pugi::xml_node child = firstElement(node); child; child = nextElement(child)) {
            if (isElement(child, "QUALIFIER")) {
                continue;
            }
            requireValueElement(child);
            values.append(isNullElement(child, type) ? Element() : parseElement(child, type, parse));
        }
        return CIMValue(values);
    });
}

CIMValue ValueReader::readReferences(pugi::xml_node node) {
    Array<CIMObjectPath> paths;
    for (pugi::xml_node child = firstElement(node); child; child = nextElement(child)) {
        if (isElement(child, "VALUE.NULL")) {
            paths.append(CIMObjectPath());
        } else if (isElement(child, "VALUE.REFERENCE")) {
            paths.append(PathReader(context_).readReference(child));
        } else {
            failAt(child, "element VALUE.REFERENCE or VALUE.NULL");
        }
    }
    return CIMValue(paths);
}

CIMValue ValueReader::readEmbedded(pugi::xml_node node, CIMType type) {
    if (isEmpty(node)) {
        return CIMValue(type, false);
    }
    const CIMObject object = EmbeddedReader(context_).read(node);
    if (type == CIMTYPE_INSTANCE && object.isInstance()) {
        return CIMValue(CIMInstance(object));
    }
    return CIMValue(object);
}

CIMValue ValueReader::readEmbeddedArray(pugi::xml_node node, CIMType type) {
    Array<CIMObject> objects;
    Array<CIMInstance> instances;
    bool onlyInstances = true;
    for (pugi::xml_node child = firstElement(node); child; child = nextElement(child)) {
        if (isElement(child, "QUALIFIER")) {
            continue;
        }
        requireValueElement(child);
        const CIMObject object = isEmpty(child) ? nullObject() : EmbeddedReader(context_).read(child);
        onlyInstances = onlyInstances && object.isInstance();
        objects.append(object);
    }
    if (type == CIMTYPE_OBJECT || !onlyInstances) {
        return CIMValue(objects);
    }
    for (Uint32 i = 0; i < objects.size(); ++i) {
        instances.append(CIMInstance(objects[i]));
    }
    return CIMValue(instances);
}

}  // namespace cimxml
