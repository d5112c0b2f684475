#include "namespace/names/Names.h"

#include "provider/contract/Log.h"
#include "provider/contract/PegText.h"
#include "provider/contract/Refuse.h"

namespace NQELVSK20 {

namespace {

bool IsNameStart(char c) {
    return (c >= 'a' && c <= 'z') || c == '_';
}

bool IsNamePart(char c) {
    return IsNameStart(c) || (c >= '0' && c <= '9');
}

}  // namespace

// One pass: this runs for every name that is looked up.
std::string NormalizeName(const std::string& name) {
    std::string normalized = name;
    for (std::size_t i = 0; i < normalized.size(); ++i) {
        char& c = normalized[i];
        c = LowerCase(c);
        if (!(i == 0 ? IsNameStart(c) : IsNamePart(c))) {
            Refuse(eVSKInvalidName, kLogError, "CimHTTP: CIM name '" + name + "' is invalid");
        }
    }
    return normalized;
}

bool EqualByName(const std::string& left, const std::string& right) {
    return NormalizeName(left) == NormalizeName(right);
}

bool LessByName(const std::string& left, const std::string& right) {
    return NormalizeName(left) < NormalizeName(right);
}

}  // namespace NQELVSK20
