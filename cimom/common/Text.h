#pragma once

#include <string>
#include <string_view>

namespace cimom {

/// A CIM name as a map key: CIM names differ only without regard to the case of ASCII letters (DSP0004).
std::string lowered(std::string_view name);

/// Whether two CIM names are the same name.
bool sameName(std::string_view one, std::string_view other);

/// The text without blanks, tabs and line ends on either side.
std::string_view trimmed(std::string_view text);

}  // namespace cimom
