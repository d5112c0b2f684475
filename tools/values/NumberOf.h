#pragma once

#include <optional>

#include "tools/common/Decimal.h"
#include "vskcore/TCIMValue.h"

namespace tool {

/// The number that a scalar of a numeric type is; none for null, for arrays, for other types, and for reals
/// that are no number or infinite.
std::optional<Decimal> numberOf(const NQELVSK20::TCIMValue& value);

/// The same where a property may be missing: `value` may be null.
std::optional<Decimal> numberOf(const NQELVSK20::TCIMValue* value);

}  // namespace tool
