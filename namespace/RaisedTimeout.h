#pragma once

#include <string>

#include "vskcore/TContext.h"

namespace NQELVSK20 {

/// A time-out in milliseconds: the default, or the context's value under `key` when that is longer.
unsigned int RaisedTimeout(const TContext& context, const std::string& key, unsigned int defaultTimeout);

}  // namespace NQELVSK20
