#pragma once

#include <Pegasus/Common/String.h>

#include <string>

namespace Pegasus {

/// Appends the text, or the one UTF-16 code unit, in UTF-8. An unpaired
/// surrogate becomes U+FFFD.
void appendUtf8(std::string& out, const String& text);
void appendUtf8(std::string& out, Char16 unit);

/// Whether the text consists of ASCII characters, as most do.
bool isAscii(const String& text);

/// Writes as many bytes of an ASCII text as it has characters.
void copyAscii(char* out, const String& text);

/// The text in UTF-8.
std::string toUtf8(const String& text);

/// The text of well-formed UTF-8; malformed bytes throw Exception.
String fromUtf8(const std::string& text);

}  // namespace Pegasus
