#pragma once

#include <string>

#include "tools/values/ValueMap.h"
#include "vskcore/TCIMValue.h"

namespace tool {

/// The elements of an array value; they live as long as the value.
const std::vector<NQELVSK20::TCIMValue>& elementsOf(const NQELVSK20::TCIMValue& value);

/// A scalar's text as it is: char16 as the character, null as "".
std::string plainText(const NQELVSK20::TCIMValue& scalar);

/// A value for a person: texts of the value map in parentheses, `2 (OK)`, arrays as `[a, b]`, null as
/// `(null)`; safe for a terminal. `map` may be null.
std::string valueText(const NQELVSK20::TCIMValue& value, const ValueMap* map);

/// A value as MOF writes it (DSP0004): text quoted, arrays in braces, booleans TRUE or FALSE, null NULL; safe
/// for a terminal.
std::string mofText(const NQELVSK20::TCIMValue& value);

/// Text as a MOF string literal.
std::string mofString(const std::string& text);

}  // namespace tool
