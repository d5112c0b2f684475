#pragma once

#include <string>

#include "cimom/CimRequest.h"
#include "cimom/NameSpace.h"

namespace cimom {

/// Carries out an intrinsic operation (DSP0200) and returns what goes into its IRETURNVALUE element.
/// Throws CimError. Operations that change the repository, run queries or walk associations are not
/// supported and say so.
std::string runIntrinsicOperation(const CimRequest& request, NameSpace& nameSpace);

}  // namespace cimom
