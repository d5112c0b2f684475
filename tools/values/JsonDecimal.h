#pragma once

#include <nlohmann/json_fwd.hpp>

#include "tools/common/Decimal.h"

namespace tool {

/// A number in JSON (RFC 8259): 3.31 as 3.31. One that a reader with IEEE 754 numbers would take for another
/// is text.
nlohmann::ordered_json jsonDecimal(const Decimal& number);

}  // namespace tool
