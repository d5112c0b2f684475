#pragma once

#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace cimom {

/// Deepest nesting of elements that is read; deeper texts are refused.
constexpr int kMaxXmlDepth = 64;

/// Parses an XML text into `document`. Besides what pugixml refuses, this refuses what it lets pass:
/// text that is not UTF-8, characters that XML 1.0 does not allow, stray ampersands, a second root element
/// and nesting deeper than kMaxXmlDepth.
///
/// Returns nothing when all is well, otherwise what is wrong and at which byte.
struct XmlDefect {
    std::size_t offset = 0;
    std::string what;
};
std::optional<XmlDefect> parseXml(std::string_view text, pugi::xml_document& document);

/// Appends text as the content of an element.
void appendEscaped(std::string& out, std::string_view text);

/// Appends ` name="value"`, escaped.
void appendAttribute(std::string& out, std::string_view name, std::string_view value);

/// Appends an element with all that is in it. Blanks between elements and comments are left out; the text
/// of elements that hold only text is kept to the letter.
void appendElement(std::string& out, pugi::xml_node element);

/// Appends the element children of a node, as appendElement does.
void appendChildren(std::string& out, pugi::xml_node element);

/// The text of an element: its text and CDATA sections put together.
std::string textOf(pugi::xml_node element);

/// The first child that is an element, or a null node.
pugi::xml_node firstElement(pugi::xml_node node);

/// The next sibling that is an element, or a null node.
pugi::xml_node nextElement(pugi::xml_node node);

}  // namespace cimom
