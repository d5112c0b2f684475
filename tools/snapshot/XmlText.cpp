#include "tools/snapshot/XmlText.h"

namespace tool {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

// U+FFFE and U+FFFF in UTF-8: no characters.
bool isNoncharacter(std::string_view text) {
    const std::string_view start = text.substr(0, 3);
    return start == "\xEF\xBF\xBE" || start == "\xEF\xBF\xBF";
}

void appendXmlByte(std::string& out, char c) {
    switch (c) {
        case '&':
            out += "&amp;";
            return;
        case '<':
            out += "&lt;";
            return;
        case '>':
            out += "&gt;";
            return;
        case '"':
            out += "&quot;";
            return;
        case '\t':
        case '\n':
        case '\r':  // a reader makes others of those that stand as they are
            out += "&#" + std::to_string(int{c}) + ";";
            return;
        default:
            break;
    }
    const bool isControl = static_cast<unsigned char>(c) < 0x20;
    isControl ? out.append(kReplacement) : out.append(1, c);
}

}  // namespace

void appendXmlText(std::string& out, std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\xEF' && isNoncharacter(text.substr(i))) {
            out += kReplacement;
            i += 2;
        } else {
            appendXmlByte(out, text[i]);
        }
    }
}

void appendXmlAttribute(std::string& out, std::string_view name, std::string_view value) {
    out.append(" ").append(name).append("=\"");
    appendXmlText(out, value);
    out += '"';
}

}  // namespace tool
