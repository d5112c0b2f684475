#pragma once

#include <functional>
#include <string>

#include "vskcore/TCIMValue.h"

namespace tool {

/// Tells a property's value by its name; null when there is none of that name. The value lives as long as
/// what it was taken from.
using PropertySource = std::function<const NQELVSK20::TCIMValue*(const std::string& property)>;

}  // namespace tool
