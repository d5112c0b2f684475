#include "cimxml/common/XmlOutput.h"

#include "cimxml/common/Utf8.h"

namespace cimxml {

namespace {

void appendCharacter(std::string& out, char c) {
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
            if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) {
                out += "&#" + std::to_string(int{c}) + ";";
            } else {
                out += c;
            }
    }
}

}  // namespace

void XmlOutput::line(std::string_view markup) {
    text_ += markup;
    if (isPrinted()) {
        text_ += '\n';
    }
}

void XmlOutput::blank() {
    if (isPrinted()) {
        text_ += ' ';
    }
}

void XmlOutput::attribute(std::string_view name, std::string_view value) {
    text_.append(" ").append(name).append("=\"");
    escaped(value);
    text_ += '"';
}

void XmlOutput::attribute(std::string_view name, const Pegasus::String& value) {
    attribute(name, Pegasus::toUtf8(value));
}

void XmlOutput::escaped(std::string_view text) {
    for (const char c : text) {
        appendCharacter(text_, c);
    }
}

void XmlOutput::text(std::string_view text) {
    bool isAfterBlank = true;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == ' ' && (isAfterBlank || i + 1 == text.size())) {
            text_ += "&#32;";
            isAfterBlank = false;
        } else {
            appendCharacter(text_, text[i]);
            isAfterBlank = text[i] == ' ';
        }
    }
}

void XmlOutput::text(const Pegasus::String& text) {
    this->text(Pegasus::toUtf8(text));
}

}  // namespace cimxml
