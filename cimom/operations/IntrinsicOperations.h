#pragma once

#include <string>

#include "cimom/data/NameSpace.h"
#include "cimom/operations/CimRequest.h"
#include "cimom/operations/LocalOnlyRules.h"

namespace cimom {

/// Carries out an intrinsic operation (DSP0200) and appends what goes into its IRETURNVALUE element.
/// Throws CimError; what was appended until then is of no use. Operations that change the repository, run
/// queries or walk associations are not supported and say so.
void runIntrinsicOperation(const CimRequest& request, NameSpace& nameSpace, std::string& out,
                           const LocalOnlyRules& localOnly = {});

}  // namespace cimom
