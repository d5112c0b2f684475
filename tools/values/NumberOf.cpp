#include "tools/values/NumberOf.h"

namespace tool {

namespace {

using NQELVSK20::TCIMValue;
using TType = TCIMValue::TCIMType;

}  // namespace

std::optional<Decimal> numberOf(const TCIMValue& value) {
    const TType::ECIMType type = value.GetType();
    const bool isNumber = type >= TType::eUint8 && type <= TType::eReal64;
    return value.IsNull() || value.IsArray() || !isNumber ? std::nullopt : Decimal::parse(value.ToString(10));
}

std::optional<Decimal> numberOf(const TCIMValue* value) {
    return value == nullptr ? std::nullopt : numberOf(*value);
}

}  // namespace tool
