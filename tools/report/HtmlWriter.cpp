#include "tools/report/HtmlWriter.h"

#include "tools/common/SafeText.h"

namespace tool {

namespace {

// What could end a text or an attribute's value in either kind of quotes, or begin something else in it.
std::string escapedForHtml(std::string_view text) {
    std::string escaped;
    escaped.reserve(text.size());
    for (const char letter : safeText(text)) {
        switch (letter) {
            case '&':
                escaped += "&amp;";
                break;
            case '<':
                escaped += "&lt;";
                break;
            case '>':
                escaped += "&gt;";
                break;
            case '"':
                escaped += "&quot;";
                break;
            case '\'':
                escaped += "&#39;";
                break;
            default:
                escaped += letter;
        }
    }
    return escaped;
}

}  // namespace

HtmlWriter::HtmlWriter() : html_("<!DOCTYPE html>\n") {}

void HtmlWriter::begin(const char* name, const Attributes& attributes) {
    html_ += '<';
    html_ += name;
    for (const auto& [attribute, value] : attributes) {
        html_ += ' ';
        html_ += attribute;
        html_ += "=\"" + escapedForHtml(value) + '"';
    }
}

HtmlWriter::Scope HtmlWriter::open(const char* name, const Attributes& attributes) {
    begin(name, attributes);
    html_ += '>';
    return {*this, name};
}

void HtmlWriter::close(const char* name) {
    html_ += "</";
    html_ += name;
    html_ += ">\n";
}

void HtmlWriter::element(const char* name, std::string_view text, const Attributes& attributes) {
    begin(name, attributes);
    html_ += '>';
    html_ += escapedForHtml(text) + "</" + name + '>';
}

void HtmlWriter::empty(const char* name, const Attributes& attributes) {
    begin(name, attributes);
    html_ += "/>";
}

void HtmlWriter::text(std::string_view text) {
    html_ += escapedForHtml(text);
}

void HtmlWriter::writeAsset(const char* name, std::string_view content) {
    begin(name, {});
    html_ += ">\n";
    html_ += content;
    close(name);
}

}  // namespace tool
