#include "cimxml/wire/TypeAttribute.h"

#include <string>

#include "cimxml/wire/Ascii.h"
#include "cimxml/wire/Scalars.h"
#include "cimxml/wire/XmlNode.h"

namespace cimxml {

using namespace Pegasus;

namespace {

CIMType toType(const Attributes& node, const char* name, const char* text) {
    const auto type = parseType(text);
    if (!type) {
        failAt(node.element(), std::string("a type in attribute ") + name + ", found " + quote(text));
    }
    return *type;
}

}  // namespace

CIMType readType(const Attributes& node) {
    return toType(node, "TYPE", requireAttribute(node, "TYPE"));
}

std::optional<CIMType> readParameterType(const Attributes& node) {
    for (const char* name : {"PARAMTYPE", "TYPE"}) {
        const char* text = attribute(node, name);
        if (text != nullptr && !trim(text).empty()) {
            return toType(node, name, text);
        }
    }
    return std::nullopt;
}

std::optional<CIMType> readEmbeddedType(const Attributes& node) {
    for (const char* name : {"EmbeddedObject", "EMBEDDEDOBJECT"}) {
        const char* text = attribute(node, name);
        if (text == nullptr || trim(text).empty()) {
            continue;
        }
        if (equalNoCase(trim(text), "object")) {
            return CIMTYPE_OBJECT;
        }
        if (equalNoCase(trim(text), "instance")) {
            return CIMTYPE_INSTANCE;
        }
        failAt(node.element(),
               std::string("object or instance in attribute ") + name + ", found " + quote(text));
    }
    return std::nullopt;
}

Uint32 readArraySize(const Attributes& node) {
    // Far above any array of a schema, and small enough that nobody's memory hangs on it.
    constexpr Uint32 largest = 65536;
    const char* text = attribute(node, "ARRAYSIZE");
    const Uint32 size = text == nullptr ? 0 : parseInteger<Uint32>(text).value_or(0);
    return size > largest ? 0 : size;
}

}  // namespace cimxml
