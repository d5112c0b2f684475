#include "cimxml/wire/XmlText.h"

#include "cimxml/common/Utf8.h"

namespace cimxml {

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
