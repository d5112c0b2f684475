#include "model/NameOrder.h"

#include "connection/TCimHTTPNamespace.h"

namespace NQELVSK20 {

bool SameName(const std::string& left, const std::string& right) {
    return TCimHTTPNamespace::NormalizeName(left) == TCimHTTPNamespace::NormalizeName(right);
}

bool NameLess(const std::string& left, const std::string& right) {
    return TCimHTTPNamespace::NormalizeName(left) < TCimHTTPNamespace::NormalizeName(right);
}

}  // namespace NQELVSK20
