#include "cimom/common/ObjectPath.h"

#include <algorithm>
#include <string_view>

#include "cimom/common/CimError.h"
#include "cimom/common/CimType.h"
#include "cimom/common/Text.h"
#include "cimom/common/Xml.h"

namespace cimom {
namespace {

[[noreturn]] void refuse(const std::string& why) {
    throw CimError(CimStatus::InvalidParameter, why);
}

std::string canonicalKeyValue(KeyBinding::Kind kind, const std::string& text) {
    switch (kind) {
        case KeyBinding::Kind::Numeric:
            return canonicalNumber(text);
        case KeyBinding::Kind::Boolean:
            return lowered(trimmed(text));
        default:
            return text;
    }
}

KeyBinding makeReferenceKey(const std::string& name, pugi::xml_node reference) {
    KeyBinding key;
    key.name = name;
    key.kind = KeyBinding::Kind::Reference;
    appendElement(key.value, reference);
    key.canonical = readObjectPath(firstElement(reference)).canonical();
    return key;
}

KeyBinding::Kind kindOfKeyValue(pugi::xml_node keyValue) {
    // TYPE is the newer attribute and wins; empty it says nothing.
    const std::string_view type = keyValue.attribute("TYPE").value();
    if (!type.empty()) {
        return keyKindOf(type);
    }
    const std::string_view valueType = keyValue.attribute("VALUETYPE").value();
    if (valueType == "numeric") {
        return KeyBinding::Kind::Numeric;
    }
    if (valueType == "boolean") {
        return KeyBinding::Kind::Boolean;
    }
    if (!valueType.empty() && valueType != "string") {
        refuse("KEYVALUE with the unknown VALUETYPE '" + std::string(valueType) + "'");
    }
    return KeyBinding::Kind::String;
}

KeyBinding readKey(const std::string& name, pugi::xml_node value) {
    const std::string_view element = value.name();
    if (element == "VALUE.REFERENCE") {
        return makeReferenceKey(name, value);
    }
    if (element != "KEYVALUE") {
        refuse("a key that is neither KEYVALUE nor VALUE.REFERENCE");
    }
    KeyBinding key;
    key.name = name;
    key.kind = kindOfKeyValue(value);
    key.value = textOf(value);
    key.canonical = canonicalKeyValue(key.kind, key.value);
    return key;
}

ObjectPath readInstanceName(pugi::xml_node element) {
    ObjectPath path;
    path.isInstance = true;
    path.className = element.attribute("CLASSNAME").value();
    for (pugi::xml_node child = firstElement(element); child; child = nextElement(child)) {
        if (std::string_view(child.name()) != "KEYBINDING") {
            path.keys.push_back(readKey("", child));
        } else if (child.attribute("NAME").empty()) {
            refuse("KEYBINDING without NAME");
        } else {
            path.keys.push_back(readKey(child.attribute("NAME").value(), firstElement(child)));
        }
    }
    return path;
}

ObjectPath readClassName(pugi::xml_node element) {
    ObjectPath path;
    path.className = element.attribute("NAME").value();
    return path;
}

const char* valueTypeOf(KeyBinding::Kind kind) {
    switch (kind) {
        case KeyBinding::Kind::Numeric:
            return "numeric";
        case KeyBinding::Kind::Boolean:
            return "boolean";
        default:
            return "string";
    }
}

}  // namespace

std::string ObjectPath::canonical() const {
    std::vector<std::string> parts;
    for (const KeyBinding& key : keys) {
        // The length makes the text unambiguous whatever characters the value holds.
        parts.push_back(lowered(key.name) + "=" + std::to_string(key.canonical.size()) + ":" + key.canonical);
    }
    std::sort(parts.begin(), parts.end());
    std::string text = lowered(className);
    for (const std::string& part : parts) {
        text.append(isInstance ? "." : ",").append(part);
    }
    return text;
}

ObjectPath readObjectPath(pugi::xml_node element) {
    const std::string_view kind = element.name();
    ObjectPath path;
    if (kind == "INSTANCENAME") {
        path = readInstanceName(element);
    } else if (kind == "CLASSNAME") {
        path = readClassName(element);
    } else if (kind == "LOCALINSTANCEPATH" || kind == "INSTANCEPATH") {
        path = readInstanceName(element.child("INSTANCENAME"));
    } else if (kind == "LOCALCLASSPATH" || kind == "CLASSPATH") {
        path = readClassName(element.child("CLASSNAME"));
    } else {
        refuse("'" + std::string(kind) + "' is no object path");
    }
    if (path.className.empty()) {
        refuse("an object path without class name");
    }
    return path;
}

std::string nameSpaceOf(pugi::xml_node element) {
    const pugi::xml_node whole = element.child("NAMESPACEPATH");
    std::string name;
    for (const pugi::xml_node part :
         (whole ? whole : element).child("LOCALNAMESPACEPATH").children("NAMESPACE")) {
        name.append(name.empty() ? "" : "/").append(part.attribute("NAME").value());
    }
    return name;
}

KeyBinding makeKeyBinding(const std::string& name, const std::string& cimType, pugi::xml_node value) {
    if (std::string_view(value.name()) == "VALUE.REFERENCE") {
        return makeReferenceKey(name, value);
    }
    KeyBinding key;
    key.name = name;
    key.kind = keyKindOf(cimType);
    key.value = textOf(value);
    key.canonical = canonicalKeyValue(key.kind, key.value);
    return key;
}

void appendInstanceName(std::string& out, const ObjectPath& path) {
    out += "<INSTANCENAME";
    appendAttribute(out, "CLASSNAME", path.className);
    out += ">";
    for (const KeyBinding& key : path.keys) {
        out += "<KEYBINDING";
        appendAttribute(out, "NAME", key.name);
        out += ">";
        if (key.kind == KeyBinding::Kind::Reference) {
            out += key.value;
        } else {
            out += "<KEYVALUE";
            appendAttribute(out, "VALUETYPE", valueTypeOf(key.kind));
            out += ">";
            appendEscaped(out, key.value);
            out += "</KEYVALUE>";
        }
        out += "</KEYBINDING>";
    }
    out += "</INSTANCENAME>";
}

}  // namespace cimom
