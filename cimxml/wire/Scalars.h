#pragma once

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMType.h>
#include <Pegasus/Common/Char16.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/String.h>

#include <optional>
#include <string_view>

namespace cimxml {

/// Values in the spelling of DSP0201, and in the spellings that servers use instead. Each function returns
/// nothing when the text is no value of its type, or one out of its range.

/// TRUE and FALSE in any letter case, 1 and 0, with blanks around.
std::optional<Pegasus::Boolean> parseBoolean(std::string_view text);

/// Decimal or hexadecimal (0x...) with or without a sign, with blanks around; a fraction of zeros is
/// tolerated. Number is one of the eight integer types.
template <typename Number>
std::optional<Number> parseInteger(std::string_view text);

/// Decimal with or without a point and an exponent, INF, -INF and NaN in any letter case, with blanks around.
/// Number is Real32 or Real64. What is too small for the type becomes zero, what is too large is out of
/// range.
template <typename Number>
std::optional<Number> parseReal(std::string_view text);

/// Exactly one UTF-16 code unit; a blank is a character.
std::optional<Pegasus::Char16> parseChar16(std::string_view text);

/// The 25 characters of DSP0004, with wildcards, as timestamp or interval. An empty text gives the zero
/// interval, as in OpenPegasus.
std::optional<Pegasus::CIMDateTime> parseDateTime(std::string_view text);

/// A CIM type's keyword in any letter case.
std::optional<Pegasus::CIMType> parseType(std::string_view text);

}  // namespace cimxml
