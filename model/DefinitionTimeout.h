#pragma once

namespace NQELVSK20 {

/// How long a class's definition may take to come, in milliseconds.
constexpr unsigned int kDefinitionTimeoutMs = 15000;

}  // namespace NQELVSK20
