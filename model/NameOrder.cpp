#include "model/NameOrder.h"

#include "connection/TCimHTTPNamespace.h"

namespace NQELVSK20 {

bool EqualByName(const std::string& left, const std::string& right) {
    return TCimHTTPNamespace::NormalizeName(left) == TCimHTTPNamespace::NormalizeName(right);
}

bool LessByName(const std::string& left, const std::string& right) {
    return TCimHTTPNamespace::NormalizeName(left) < TCimHTTPNamespace::NormalizeName(right);
}

}  // namespace NQELVSK20
