#include "tools/values/CimTypeName.h"

#include <array>

namespace tool {

namespace {

using TType = NQELVSK20::TCIMValue::TCIMType;

constexpr std::array<const char*, 16> kNames = {
    "object", "boolean", "uint8",  "sint8",  "uint16", "sint16", "uint32",   "sint32",
    "uint64", "sint64",  "real32", "real64", "char16", "string", "datetime", "reference"};

}  // namespace

TType::ECIMType scalarType(TType type) {
    const TType::ECIMType code = type;
    return isArrayType(type) ? static_cast<TType::ECIMType>(code - TType::eUnknownArray) : code;
}

bool isArrayType(TType type) {
    return static_cast<TType::ECIMType>(type) >= TType::eUnknownArray;
}

std::string cimTypeName(TType type) {
    return kNames.at(static_cast<std::size_t>(scalarType(type)));
}

}  // namespace tool
