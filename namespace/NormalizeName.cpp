#include "connection/Log.h"
#include "connection/Refuse.h"
#include "connection/TCimHTTPNamespace.h"

namespace NQELVSK20 {

namespace {

// ASCII only, whatever locale the host has set: CIM identifiers are not language.
bool IsUpper(char c) {
    return c >= 'A' && c <= 'Z';
}

bool IsNameStart(char c) {
    return (c >= 'a' && c <= 'z') || c == '_';
}

bool IsNamePart(char c) {
    return IsNameStart(c) || (c >= '0' && c <= '9');
}

[[noreturn]] void RefuseName(const std::string& name) {
    Refuse(eVSKInvalidName, kLogError, "CimHTTP: CIM name '" + name + "' is invalid");
}

}  // namespace

std::string TCimHTTPNamespace::NormalizeName(const std::string& name) {
    std::string normalized = name;
    for (std::size_t i = 0; i < normalized.size(); ++i) {
        char& c = normalized[i];
        if (IsUpper(c)) {
            c = static_cast<char>(c - 'A' + 'a');
        }
        if (!(i == 0 ? IsNameStart(c) : IsNamePart(c))) {
            RefuseName(name);
        }
    }
    return normalized;
}

}  // namespace NQELVSK20
