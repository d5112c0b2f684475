#pragma once

#include <string>
#include <vector>

#include "cimxml/client/CIMClientRep.h"

namespace cimxml_test {

/// Makes the call that a wire case describes and says in text what came of it, the whole result or the
/// exception. See cases/README.md for both languages.
std::string outcomeOf(Pegasus::CIMClientRep& client, const std::vector<std::string>& call);

}  // namespace cimxml_test
