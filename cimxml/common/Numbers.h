#pragma once

#include <Pegasus/Common/Config.h>

#include <optional>
#include <string>

namespace Pegasus {

/// Strict readers for numbers as object paths hold them (DSP0004, integer and
/// real values). The whole text must be the number.

/// Decimal without leading zeros, or hexadecimal with 0x.
std::optional<Uint64> parseUnsigned(const std::string& text);

/// The same with an optional sign.
std::optional<Sint64> parseSigned(const std::string& text);

/// [sign] [digits] "." digits ["e" [sign] digits]
std::optional<Real64> parseReal(const std::string& text);

}  // namespace Pegasus
