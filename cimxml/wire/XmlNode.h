#pragma once

#include <Pegasus/Common/String.h>

#include <pugixml.hpp>
#include <string>
#include <string_view>

#include "cimxml/wire/Attributes.h"

namespace cimxml {

/// How the readers look at the parsed tree.

/// Whether `node` is the element `name`. Element names are case-sensitive (DSP0201).
inline bool isElement(pugi::xml_node node, std::string_view name) {
    const char* own = node.name();
    // Most names are constants here: a compiler makes a few comparisons of this, where std::strcmp is a call.
    for (const char c : name) {
        if (*own++ != c) {
            return false;
        }
    }
    return *own == '\0';
}

/// First child element, or the next sibling element; a null node when there is none.
pugi::xml_node firstElement(pugi::xml_node parent);
pugi::xml_node nextElement(pugi::xml_node node);

/// The child element `name`. Throws WireError BadXml when there is none.
pugi::xml_node requireElement(pugi::xml_node parent, const char* name);

/// Value of an attribute, or nullptr when it is not there; valid as long as the document.
inline const char* attribute(const Attributes& node, const char* name) {
    return node.find(name);
}

/// Value of an attribute. Throws WireError BadXml when it is not there.
const char* requireAttribute(const Attributes& node, const char* name);

/// A boolean attribute in any letter case, `absent` when it is not there.
bool booleanAttribute(const Attributes& node, const char* name, bool absent);

/// The text of an element: its texts and CDATA sections joined. The result points into the document or, when
/// there was something to join, into `joined`.
std::string_view textOf(pugi::xml_node node, std::string& joined);

/// Throws WireError BadXml that says where `node` is, by offset and name, and what was expected there.
[[noreturn]] void failAt(pugi::xml_node node, const std::string& expected);

/// The beginning of a text of the document in quotation marks, for an exception.
std::string quote(std::string_view text);

/// A text of the document, which is UTF-8, as the API has it.
Pegasus::String toString(std::string_view text);

}  // namespace cimxml
