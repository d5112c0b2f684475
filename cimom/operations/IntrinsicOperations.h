#pragma once

#include <string>

#include "cimom/data/NameSpace.h"
#include "cimom/operations/CimAnswer.h"
#include "cimom/operations/CimRequest.h"
#include "cimom/operations/LocalOnlyRules.h"

namespace cimom {

/// Carries out an intrinsic operation (DSP0200): appends what goes into its IRETURNVALUE element, and returns
/// what else its answer has. Throws CimError; what was appended until then is of no use.
AnswerExtras runIntrinsicOperation(const CimRequest& request, NameSpace& nameSpace, std::string& out,
                                   const LocalOnlyRules& localOnly = {});

}  // namespace cimom
