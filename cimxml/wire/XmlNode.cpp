#include "cimxml/wire/XmlNode.h"

#include <algorithm>

#include "cimxml/wire/Ascii.h"
#include "cimxml/wire/XmlError.h"

namespace cimxml {

namespace {

pugi::xml_node skipToElement(pugi::xml_node node) {
    for (auto type = node.type(); type != pugi::node_element && type != pugi::node_null; type = node.type()) {
        if (!trim(node.value()).empty()) {
            failAt(node.parent(), "elements only, found text");
        }
        node = node.next_sibling();
    }
    return node;
}

/// Elements around `node` that have a name, innermost first: `PROPERTY "Speed" of INSTANCE "CIM_Fan"`.
std::string namesAround(pugi::xml_node node) {
    std::string names;
    int found = 0;
    for (; node && found < 2; node = node.parent()) {
        const pugi::xml_attribute own = node.attribute("NAME");
        const pugi::xml_attribute name = own ? own : node.attribute("CLASSNAME");
        if (name) {
            names +=
                std::string(names.empty() ? ", in " : " of ") + node.name() + " \"" + name.value() + "\"";
            ++found;
        }
    }
    return names;
}

}  // namespace

pugi::xml_node firstElement(pugi::xml_node parent) {
    // The parser stores a leading text as the element's own value.
    if (*parent.value() != '\0' && !trim(parent.value()).empty()) {
        failAt(parent, "elements only, found text");
    }
    return skipToElement(parent.first_child());
}

pugi::xml_node nextElement(pugi::xml_node node) {
    return skipToElement(node.next_sibling());
}

pugi::xml_node requireElement(pugi::xml_node parent, const char* name) {
    for (pugi::xml_node child = firstElement(parent); child; child = nextElement(child)) {
        if (isElement(child, name)) {
            return child;
        }
    }
    failAt(parent, std::string("element ") + name);
}

const char* requireAttribute(const Attributes& node, const char* name) {
    const char* value = attribute(node, name);
    if (value == nullptr) {
        failAt(node.element(), std::string("attribute ") + name);
    }
    return value;
}

bool booleanAttribute(const Attributes& node, const char* name, bool absent) {
    const char* value = attribute(node, name);
    if (value == nullptr) {
        return absent;
    }
    const std::string_view text = trim(value);
    if (equalNoCase(text, "true")) {
        return true;
    }
    if (!equalNoCase(text, "false")) {
        failAt(node.element(), std::string("true or false in attribute ") + name + ", found " + quote(value));
    }
    return false;
}

std::string_view textOf(pugi::xml_node node, std::string& joined) {
    const pugi::xml_node first = node.first_child();
    if (!first) {
        return node.value();
    }
    joined = node.value();
    for (pugi::xml_node piece = first; piece; piece = piece.next_sibling()) {
        if (piece.type() == pugi::node_element) {
            failAt(node, std::string("text only, found element ") + piece.name());
        }
        joined += piece.value();
    }
    return joined;
}

void failAt(pugi::xml_node node, const std::string& expected) {
    throw XmlError(node.offset_debug(),
                   namesAround(node) + ": element " + node.name() + ": expected " + expected);
}

std::string quote(std::string_view text) {
    std::size_t end = std::min<std::size_t>(text.size(), 80);
    // Not within a character: a continuation byte follows its lead byte.
    while (end > 0 && end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) {
        --end;
    }
    return "\"" + std::string(text.substr(0, end)) + (end < text.size() ? "...\"" : "\"");
}

Pegasus::String toString(std::string_view text) {
    return Pegasus::String(text.data(), static_cast<Pegasus::Uint32>(text.size()));
}

}  // namespace cimxml
