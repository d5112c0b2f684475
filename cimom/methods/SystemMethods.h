#pragma once

#include "cimom/methods/MethodCall.h"

namespace cimom {

/// CIM_EnabledLogicalElement.RequestStateChange: sets RequestedState and, for the states 2 (enabled) and
/// 3 (disabled), EnabledState. Returns 0 when done, 5 for a missing state, 4097 for one that is not offered;
/// the out-parameter Job is null, since nothing goes on afterwards.
MethodResult requestStateChange(const MethodCall& call);

}  // namespace cimom
