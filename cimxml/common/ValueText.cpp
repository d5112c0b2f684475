#include "cimxml/common/ValueText.h"

#include <charconv>

namespace Pegasus {

void appendBoolean(std::string& out, bool value) {
    out += value ? "TRUE" : "FALSE";
}

void appendReal(std::string& out, Real64 value, int digits) {
    char text[64];
    const auto result = std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, digits);
    out.append(text, result.ptr);
}

}  // namespace Pegasus
