#pragma once

#include <string>
#include <string_view>

namespace tool {

/// Appends text as the content of an element or attribute. Line ends, tabs and blanks arrive as they are;
/// U+FFFD stands for what XML 1.0 has no room for, such as most control characters.
void appendXmlText(std::string& out, std::string_view text);

/// Appends ` name="value"`.
void appendXmlAttribute(std::string& out, std::string_view name, std::string_view value);

}  // namespace tool
