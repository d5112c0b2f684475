#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "cimom/common/ObjectPath.h"

namespace cimom {

/// How a key of a CIM type is written in a path.
KeyBinding::Kind keyKindOf(std::string_view cimType);

/// A number's text such that equal integers are equal texts: no sign "+", no blanks, no leading zeros,
/// decimal. A text that is no integer comes back as it is, without blanks around it.
std::string canonicalNumber(std::string_view text);

/// The value of a CIM type as this server writes it: integers in decimal, booleans as TRUE and FALSE, all
/// else as it stands. Nothing when the text is no value of the type (DSP0201), e.g. out of its range.
std::optional<std::string> canonicalValue(std::string_view cimType, const std::string& text);

/// Whether `name` is one of the type names of DSP0201, e.g. "uint8"; "reference" counts as one.
bool isCimType(std::string_view name);

}  // namespace cimom
