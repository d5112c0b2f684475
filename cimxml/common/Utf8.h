#pragma once

#include <Pegasus/Common/String.h>

#include <string>

namespace Pegasus {

/// Appends the text, or the one UTF-16 code unit, in UTF-8. An unpaired
/// surrogate becomes U+FFFD.
void appendUtf8(std::string& out, const String& text);
void appendUtf8(std::string& out, Char16 unit);

/// The text in UTF-8.
std::string toUtf8(const String& text);

/// The text of well-formed UTF-8; malformed bytes throw Exception.
String fromUtf8(const std::string& text);

}  // namespace Pegasus
