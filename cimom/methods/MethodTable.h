#pragma once

#include <string>

#include "cimom/methods/MethodCall.h"

namespace cimom {

/// Carries out an extrinsic method and appends what goes into its METHODRESPONSE element. Throws CimError:
/// not found for a missing target, method not found when the class declares no such method, method not
/// available when it does but nothing in this server implements it, invalid parameter. Without `sendNulls`,
/// out-parameters that are null are left out, which means the same (DSP0201).
void runExtrinsicMethod(const CimRequest& request, NameSpace& nameSpace, std::string& out,
                        bool sendNulls = true);

}  // namespace cimom
