#include "cimxml/common/XmlOutput.h"

#include <algorithm>

#include "cimxml/common/Utf8.h"

namespace cimxml {

namespace {

/// Neither markup nor a control character.
bool standsForItself(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 0x20 && c != '&' && c != '<' && c != '>' && c != '"' && c != '\'' && byte != 0x7F;
}

void appendReference(std::string& out, char c) {
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
            out += "&#" + std::to_string(int{c}) + ";";
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
    while (!text.empty()) {
        const auto special = std::find_if_not(text.begin(), text.end(), standsForItself);
        const auto plain = static_cast<std::size_t>(special - text.begin());
        text_.append(text.substr(0, plain));
        text.remove_prefix(plain);
        if (!text.empty()) {
            appendReference(text_, text.front());
            text.remove_prefix(1);
        }
    }
}

void XmlOutput::text(std::string_view text) {
    bool isAfterBlank = true;
    while (!text.empty()) {
        const std::size_t blank = std::min(text.find(' '), text.size());
        escaped(text.substr(0, blank));
        text.remove_prefix(blank);
        if (text.empty()) {
            return;
        }
        isAfterBlank = isAfterBlank && blank == 0;
        const bool isDroppedBySome = isAfterBlank || text.size() == 1;
        text_ += isDroppedBySome ? "&#32;" : " ";
        isAfterBlank = !isDroppedBySome;
        text.remove_prefix(1);
    }
}

void XmlOutput::text(const Pegasus::String& text) {
    this->text(Pegasus::toUtf8(text));
}

}  // namespace cimxml
