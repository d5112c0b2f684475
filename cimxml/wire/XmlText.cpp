#include "cimxml/wire/XmlText.h"

namespace cimxml {

std::string toUtf8(const Pegasus::String& text) {
    const char* utf8 = text.getCString();
    return text.size() == 0 ? std::string() : std::string(utf8);
}

void appendEscaped(std::string& out, std::string_view text) {
    for (const char c : text) {
        switch (c) {
            case '&':
                out += "&amp;";
                break;
            case '<':
                out += "&lt;";
                break;
            case '>':
                out += "&gt;";
                break;
            case '"':
                out += "&quot;";
                break;
            case '\'':
                out += "&apos;";
                break;
            default:
                if (static_cast<unsigned char>(c) < 0x20) {
                    out += "&#" + std::to_string(static_cast<int>(c)) + ";";
                } else {
                    out += c;
                }
        }
    }
}

void appendAttribute(std::string& out, std::string_view name, std::string_view value) {
    out.append(" ").append(name).append("=\"");
    appendEscaped(out, value);
    out += '"';
}

void appendAttribute(std::string& out, std::string_view name, const Pegasus::String& value) {
    appendAttribute(out, name, toUtf8(value));
}

}  // namespace cimxml
