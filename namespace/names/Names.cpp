#include "namespace/names/Names.h"

#include <algorithm>

#include "provider/contract/Log.h"
#include "provider/contract/Refuse.h"

namespace NQELVSK20 {

namespace {

char LowerCase(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool IsNameStart(char c) {
    return (c >= 'a' && c <= 'z') || c == '_';
}

bool IsNamePart(char c) {
    return IsNameStart(c) || (c >= '0' && c <= '9');
}

}  // namespace

std::string LowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char c) { return LowerCase(c); });
    return text;
}

std::string NormalizeName(const std::string& name) {
    std::string normalized = LowerCase(name);
    const bool isName = normalized.empty() || (IsNameStart(normalized.front()) &&
                                               std::all_of(normalized.begin(), normalized.end(), IsNamePart));
    if (!isName) {
        Refuse(eVSKInvalidName, kLogError, "CimHTTP: CIM name '" + name + "' is invalid");
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
