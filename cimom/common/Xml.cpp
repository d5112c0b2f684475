#include "cimom/common/Xml.h"

#include <cstdint>

namespace cimom {
namespace {

// Every blank is kept, since a VALUE may consist of blanks only.
constexpr unsigned kParseFlags = pugi::parse_default | pugi::parse_ws_pcdata;

bool isXmlCharacter(std::uint32_t c) {
    return c == 0x9 || c == 0xA || c == 0xD || (c >= 0x20 && c <= 0xD7FF) || (c >= 0xE000 && c <= 0xFFFD) ||
           (c >= 0x10000 && c <= 0x10FFFF);
}

/// Length of the UTF-8 sequence at `at`, with its character; 0 when there is none.
std::size_t decodeUtf8(std::string_view text, std::size_t at, std::uint32_t& character) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(at);
    const std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    static constexpr std::uint32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    if ((lead >= 0x80 && lead < 0xC2) || lead > 0xF4 || text.size() - at < length) {
        return 0;
    }
    character = length == 1 ? lead : lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(at + i) & 0xC0) != 0x80) {
            return 0;
        }
        character = (character << 6) | (byte(at + i) & 0x3FU);
    }
    return character >= kSmallest[length] ? length : 0;
}

std::optional<XmlDefect> findBadCharacter(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        std::uint32_t character = 0;
        const std::size_t length = decodeUtf8(text, at, character);
        if (length == 0) {
            return XmlDefect{at, "not UTF-8"};
        }
        if (!isXmlCharacter(character)) {
            return XmlDefect{at, "a character that XML does not allow"};
        }
        at += length;
    }
    return std::nullopt;
}

/// Whether `name`, the text between "&#" and ";", refers to a character that XML allows.
bool isCharacterReference(std::string_view name) {
    const bool hex = !name.empty() && name.front() == 'x';
    if (hex) {
        name.remove_prefix(1);
    }
    std::uint32_t character = 0;
    for (const char c : name) {
        const int digit = c >= '0' && c <= '9'          ? c - '0'
                          : hex && c >= 'a' && c <= 'f' ? c - 'a' + 10
                          : hex && c >= 'A' && c <= 'F' ? c - 'A' + 10
                                                        : -1;
        if (digit < 0 || character > 0x10FFFF) {
            return false;
        }
        character = character * (hex ? 16U : 10U) + static_cast<std::uint32_t>(digit);
    }
    return !name.empty() && isXmlCharacter(character);
}

bool isReference(std::string_view name) {
    if (!name.empty() && name.front() == '#') {
        return isCharacterReference(name.substr(1));
    }
    return name == "amp" || name == "lt" || name == "gt" || name == "quot" || name == "apos";
}

/// Where the section that starts at `at` ends, when it is one in which an ampersand is an ordinary
/// character; `at` itself otherwise.
std::size_t skipLiteralSection(std::string_view text, std::size_t at) {
    static constexpr std::string_view kSections[][2] = {{"<![CDATA[", "]]>"}, {"<!--", "-->"}, {"<?", "?>"}};
    for (const auto& [open, close] : kSections) {
        if (text.substr(at, open.size()) == open) {
            const auto end = text.find(close, at + open.size());
            return end == std::string_view::npos ? text.size() : end + close.size();
        }
    }
    return at;
}

std::optional<XmlDefect> findBadReference(std::string_view text) {
    for (std::size_t at = text.find_first_of("&<"); at != std::string_view::npos;
         at = text.find_first_of("&<", at)) {
        if (text[at] == '<') {
            const std::size_t end = skipLiteralSection(text, at);
            at = end == at ? at + 1 : end;
            continue;
        }
        constexpr std::size_t kLongestReference = 10;
        const auto end = text.substr(0, at + 1 + kLongestReference).find(';', at);
        if (end == std::string_view::npos || !isReference(text.substr(at + 1, end - at - 1))) {
            return XmlDefect{at, "an ampersand that starts no known reference"};
        }
        at = end;
    }
    return std::nullopt;
}

class DepthCheck : public pugi::xml_tree_walker {
public:
    bool for_each(pugi::xml_node&) override { return depth() < kMaxXmlDepth; }
};

std::optional<XmlDefect> findBadShape(pugi::xml_document& document, std::size_t size) {
    const pugi::xml_node root = firstElement(document);
    if (!root) {
        return XmlDefect{size, "no element"};
    }
    if (const pugi::xml_node second = nextElement(root)) {
        return XmlDefect{static_cast<std::size_t>(second.offset_debug()), "a second root element"};
    }
    DepthCheck check;
    if (!document.traverse(check)) {
        return XmlDefect{0, "elements nested too deep"};
    }
    return std::nullopt;
}

const char* escapeInContent(char c) {
    switch (c) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '\r':
            return "&#13;";
        default:
            return nullptr;
    }
}

/// Readers turn line ends and tabs of an attribute value into blanks unless they are escaped.
const char* escapeInAttribute(char c) {
    switch (c) {
        case '"':
            return "&quot;";
        case '\n':
            return "&#10;";
        case '\t':
            return "&#9;";
        default:
            return escapeInContent(c);
    }
}

template <typename EscapeOf>
void appendWith(EscapeOf escapeOf, std::string& out, std::string_view text) {
    std::size_t from = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (const char* escape = escapeOf(text[at])) {
            out.append(text, from, at - from).append(escape);
            from = at + 1;
        }
    }
    out.append(text, from, text.size() - from);
}

void appendContent(std::string& out, pugi::xml_node element) {
    if (firstElement(element)) {
        appendChildren(out, element);
    } else {
        appendEscaped(out, textOf(element));
    }
}

}  // namespace

std::optional<XmlDefect> parseXml(std::string_view text, pugi::xml_document& document) {
    if (auto defect = findBadCharacter(text)) {
        return defect;
    }
    if (auto defect = findBadReference(text)) {
        return defect;
    }
    const auto result = document.load_buffer(text.data(), text.size(), kParseFlags, pugi::encoding_utf8);
    if (!result) {
        return XmlDefect{static_cast<std::size_t>(result.offset), result.description()};
    }
    return findBadShape(document, text.size());
}

void appendEscaped(std::string& out, std::string_view text) {
    appendWith(escapeInContent, out, text);
}

void appendAttribute(std::string& out, std::string_view name, std::string_view value) {
    out.append(" ").append(name).append("=\"");
    appendWith(escapeInAttribute, out, value);
    out.append("\"");
}

void appendElement(std::string& out, pugi::xml_node element) {
    out.append("<").append(element.name());
    for (const pugi::xml_attribute attribute : element.attributes()) {
        appendAttribute(out, attribute.name(), attribute.value());
    }
    out.append(">");
    appendContent(out, element);
    out.append("</").append(element.name()).append(">");
}

void appendChildren(std::string& out, pugi::xml_node element) {
    for (pugi::xml_node child = firstElement(element); child; child = nextElement(child)) {
        appendElement(out, child);
    }
}

std::string textOf(pugi::xml_node element) {
    std::string text;
    for (const pugi::xml_node child : element.children()) {
        text += child.value();
    }
    return text;
}

pugi::xml_node firstElement(pugi::xml_node node) {
    const pugi::xml_node child = node.first_child();
    return child && child.type() != pugi::node_element ? nextElement(child) : child;
}

pugi::xml_node nextElement(pugi::xml_node node) {
    do {
        node = node.next_sibling();
    } while (node && node.type() != pugi::node_element);
    return node;
}

}  // namespace cimom
