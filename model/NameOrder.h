#pragma once

#include <string>

namespace NQELVSK20 {

/// How names of elements compare: as their normalised forms do (TCimHTTPNamespace::NormalizeName, whose
/// exception for a malformed name passes).
bool EqualByName(const std::string& left, const std::string& right);
bool LessByName(const std::string& left, const std::string& right);

}  // namespace NQELVSK20
