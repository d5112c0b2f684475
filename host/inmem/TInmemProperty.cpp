#include "inmem/TInmemProperty.h"

namespace NQELVSK20 {

TInmemProperty::TInmemProperty(const std::string& name, const TCIMValue& value)
    : name_(&name), value_(value) {}

const std::string& TInmemProperty::GetName(TContext /*context*/) const {
    return *name_;
}

const TCIMValue& TInmemProperty::GetValue(TContext /*context*/) const {
    return value_;
}

void TInmemProperty::Set(const std::string& name, const TCIMValue& value) {
    name_ = &name;
    value_ = value;
}

}  // namespace NQELVSK20
