#pragma once

#include <Pegasus/Common/String.h>

#include <string>
#include <string_view>

namespace cimxml {

/// What the same elements look like.
enum class XmlLayout {
    Sent,    ///< without a byte between them
    Printed  ///< with the line ends and blanks of OpenPegasus, and its marks of embedded objects
};

/// Appends XML in UTF-8 to a text.
class XmlOutput {
public:
    // Not explicit: a request is a text to everyone who writes a part of it.
    XmlOutput(std::string& text, XmlLayout layout = XmlLayout::Sent) : text_(text), layout_(layout) {}

    bool isPrinted() const { return layout_ == XmlLayout::Printed; }
    XmlLayout layout() const { return layout_; }

    /// Appends `markup` as it is; `line` and a line end, when lines are wanted.
    void append(std::string_view markup) { text_ += markup; }
    void line(std::string_view markup);

    /// The blank without a meaning that OpenPegasus prints after some attributes.
    void blank();

    /// ` NAME="value"`, the value escaped.
    void attribute(std::string_view name, std::string_view value);
    void attribute(std::string_view name, const char* value) { attribute(name, std::string_view(value)); }
    void attribute(std::string_view name, const Pegasus::String& value);

    /// UTF-8 escaped so that it means itself in an element's content, line ends included.
    void escaped(std::string_view text);

    /// The same; blanks that some servers drop, those at either end and after another, are references.
    void text(std::string_view text);
    void text(const Pegasus::String& text);

private:
    std::string& text_;
    XmlLayout layout_;
};

}  // namespace cimxml
