#include "cimxml/wire/PathReader.h"

#include <Pegasus/Common/Exception.h>

#include <string>

#include "cimxml/common/Utf8.h"
#include "cimxml/wire/Ascii.h"
#include "cimxml/wire/Scalars.h"
#include "cimxml/wire/XmlNode.h"

namespace cimxml {

using namespace Pegasus;

namespace {

constexpr const char* pathElements[] = {"INSTANCENAME", "INSTANCEPATH",   "LOCALINSTANCEPATH",
                                        "CLASSNAME",    "LOCALCLASSPATH", "CLASSPATH"};

CIMKeyBinding::Type bindingType(CIMType type) {
    switch (type) {
        case CIMTYPE_BOOLEAN:
            return CIMKeyBinding::BOOLEAN;
        case CIMTYPE_STRING:
        case CIMTYPE_CHAR16:
        case CIMTYPE_DATETIME:
            return CIMKeyBinding::STRING;
        case CIMTYPE_REFERENCE:
            return CIMKeyBinding::REFERENCE;
        default:
            return CIMKeyBinding::NUMERIC;
    }
}

/// TYPE, which is exact, goes before VALUETYPE. Some servers send a CIM type as VALUETYPE.
CIMKeyBinding::Type bindingType(const Attributes& value) {
    for (const char* name : {"TYPE", "VALUETYPE"}) {
        const char* text = attribute(value, name);
        if (text == nullptr || trim(text).empty()) {
            continue;
        }
        if (equalNoCase(trim(text), "numeric")) {
            return CIMKeyBinding::NUMERIC;
        }
        const auto type = parseType(text);
        if (!type) {
            failAt(value.element(), std::string("a type in attribute ") + name + ", found " + quote(text));
        }
        return bindingType(*type);
    }
    return CIMKeyBinding::STRING;
}

}  // namespace

bool PathReader::isPath(pugi::xml_node node) {
    for (const char* name : pathElements) {
        if (isElement(node, name)) {
            return true;
        }
    }
    return false;
}

CIMObjectPath PathReader::read(pugi::xml_node node) {
    if (isElement(node, "INSTANCENAME") || isElement(node, "CLASSNAME")) {
        return readObjectName(node, {});
    }
    if (!isPath(node)) {
        failAt(node, "a class or instance path");
    }
    const pugi::xml_node first = firstElement(node);
    Place place;
    if (isElement(first, "NAMESPACEPATH")) {
        place = readNamespacePath(first);
    } else if (isElement(first, "LOCALNAMESPACEPATH")) {
        place.nameSpace = readLocalNamespacePath(first);
    } else {
        failAt(node, "element NAMESPACEPATH or LOCALNAMESPACEPATH");
    }
    return readObjectName(nextElement(first), place);
}

CIMObjectPath PathReader::readReference(pugi::xml_node node) {
    const pugi::xml_node path = firstElement(node);
    if (!path) {
        failAt(node, "a class or instance path");
    }
    return read(path);
}

const CIMName& PathReader::readName(const Attributes& node, const char* attributeName) {
    return findName(node, attributeName).name;
}

KnownName& PathReader::findName(const Attributes& node, const char* attributeName) {
    const char* text = requireAttribute(node, attributeName);
    try {
        return context_.names.find(text);
    } catch (const InvalidNameException&) {
        failAt(node.element(),
               std::string("a CIM name in attribute ") + attributeName + ", found " + quote(text));
    }
}

CIMName PathReader::readOptionalName(const Attributes& node, const char* attributeName) {
    const char* text = attribute(node, attributeName);
    return text == nullptr || *text == '\0' ? CIMName() : readName(node, attributeName);
}

PathReader::Place PathReader::readNamespacePath(pugi::xml_node node) {
    std::string joined;
    const String host = toString(trim(textOf(requireElement(node, "HOST"), joined)));
    return {host, readLocalNamespacePath(requireElement(node, "LOCALNAMESPACEPATH"))};
}

CIMNamespaceName PathReader::readLocalNamespacePath(pugi::xml_node node) {
    std::string path;
    for (pugi::xml_node part = firstElement(node); part; part = nextElement(part)) {
        if (!isElement(part, "NAMESPACE")) {
            failAt(part, "element NAMESPACE");
        }
        path += (path.empty() ? "" : "/") + std::string(requireAttribute(part, "NAME"));
    }
    try {
        return CIMNamespaceName(toString(path));
    } catch (const InvalidNamespaceNameException&) {
        failAt(node, "a namespace name, found " + quote(path));
    }
}

CIMObjectPath PathReader::readObjectName(pugi::xml_node node, const Place& place) {
    const bool isInstance = isElement(node, "INSTANCENAME");
    if (!isInstance && !isElement(node, "CLASSNAME")) {
        failAt(node ? node : node.parent(), "element INSTANCENAME or CLASSNAME");
    }
    const CIMName& className = readName(node, isInstance ? "CLASSNAME" : "NAME");
    try {
        return CIMObjectPath(place.host, place.nameSpace, className,
                             isInstance ? readKeys(node) : Array<CIMKeyBinding>());
    } catch (const MalformedObjectNameException& error) {
        failAt(node, "a valid object path: " + toUtf8(error.getMessage()));
    }
}

Array<CIMKeyBinding> PathReader::readKeys(pugi::xml_node instanceName) {
    Array<CIMKeyBinding> keys;
    for (pugi::xml_node child = firstElement(instanceName); child; child = nextElement(child)) {
        if (isElement(child, "KEYBINDING")) {
            keys.append(readKey(firstElement(child), findName(child, "NAME")));
        } else {
            // The only key of a class may come without its name (DSP0201, INSTANCENAME).
            KnownName nameless;
            keys.append(readKey(child, nameless));
        }
    }
    return keys;
}

CIMKeyBinding PathReader::readKey(pugi::xml_node value, KnownName& name) {
    if (isElement(value, "KEYVALUE")) {
        return readKeyValue(value, name);
    }
    if (isElement(value, "VALUE.REFERENCE")) {
        return CIMKeyBinding(name.name, readReference(value).toString(), CIMKeyBinding::REFERENCE);
    }
    failAt(value, "element KEYVALUE or VALUE.REFERENCE");
}

CIMKeyBinding PathReader::readKeyValue(pugi::xml_node value, KnownName& name) {
    std::string joined;
    const std::string_view text = textOf(value, joined);
    const CIMKeyBinding::Type type = bindingType(value);
    return type == CIMKeyBinding::STRING ? CIMKeyBinding(name.name, readKeyText(text, name), type)
                                         : CIMKeyBinding(name.name, toString(trim(text)), type);
}

/// The property of the same name mostly follows, with the same text.
String PathReader::readKeyText(std::string_view text, KnownName& name) {
    context_.texts.assign(text).push_back('\0');
    String result;
    if (const CIMValue* known = name.recall(context_.texts, CIMTYPE_STRING, false)) {
        known->get(result);
        return result;
    }
    result = toString(text);
    name.remember(context_.texts, CIMValue(result));
    return result;
}

}  // namespace cimxml
