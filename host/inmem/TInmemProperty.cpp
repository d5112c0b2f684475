#include "inmem/TInmemProperty.h"

#include <utility>

namespace NQELVSK20 {

TInmemProperty::TInmemProperty(std::shared_ptr<const std::string> name, const TCIMValue& value)
    : name_(std::move(name)), value_(value) {}

const std::string& TInmemProperty::GetName(TContext /*context*/) const {
    return *name_;
}

const TCIMValue& TInmemProperty::GetValue(TContext /*context*/) const {
    return value_;
}

}  // namespace NQELVSK20
