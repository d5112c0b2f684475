#pragma once

#include <Pegasus/Common/String.h>

#include <string>
#include <string_view>

namespace cimxml {

/// Appends UTF-8 `text` escaped so that it means itself in an element's content and in an attribute value in
/// double quotes, and keeps its line ends there.
void appendEscaped(std::string& out, std::string_view text);

/// Appends ` NAME="value"`, the value escaped.
void appendAttribute(std::string& out, std::string_view name, std::string_view value);
void appendAttribute(std::string& out, std::string_view name, const Pegasus::String& value);

}  // namespace cimxml
