#pragma once

#include <Pegasus/Common/Char16.h>

namespace Pegasus {

/// Whether a CIM name may start with, or contain, this character (DSP0004,
/// CIM identifiers).
constexpr bool isNameStart(Uint16 c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || (c >= 0x80 && c <= 0xFFEF);
}

constexpr bool isNamePart(Uint16 c) {
    return isNameStart(c) || (c >= '0' && c <= '9');
}

}  // namespace Pegasus
