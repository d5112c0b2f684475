#pragma once

#include <string>

#include "cimom/CimRequest.h"
#include "cimom/LocalOnlyRules.h"
#include "cimom/NameSpace.h"

namespace cimom {

/// Carries out an intrinsic operation (DSP0200) and appends what goes into its IRETURNVALUE element.
/// Throws CimError; what was appended until then is of no use. Operations that change the repository, run
/// queries or walk associations are not supported and say so.
void runIntrinsicOperation(const CimRequest& request, NameSpace& nameSpace, std::string& out,
                           const LocalOnlyRules& localOnly = {});

}  // namespace cimom
