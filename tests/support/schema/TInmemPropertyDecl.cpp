#include "tests/support/schema/TInmemPropertyDecl.h"

#include "tests/support/schema/IsCimName.h"
#include "vskcore/ICIMClass.h"

namespace NQELVSK20 {

TInmemPropertyDecl::TInmemPropertyDecl(const boost::shared_ptr<ICIMClass>& cimClass, const std::string& name,
                                       const TCIMValue& defaultValue)
    : class_(cimClass), name_(name), value_(defaultValue) {}

void TInmemPropertyDecl::Validate(TContext /*context*/) {
    if (!IsCimName(name_)) {
        throw TVSKException(eVSKInvalidName);
    }
}

void TInmemPropertyDecl::Commit(TContext context) {
    Validate(context);
    class_.lock()->AddPropertyDecl(shared_from_this(), context);
}

void TInmemPropertyDecl::Reserved10(TContext /*context*/) {}

const std::string& TInmemPropertyDecl::GetName(TContext /*context*/) const {
    return name_;
}

boost::shared_ptr<ICIMClass> TInmemPropertyDecl::GetClass(TContext /*context*/) const {
    return class_.lock();
}

TCIMValue::TCIMType TInmemPropertyDecl::GetType(TContext /*context*/) const {
    return value_.GetType();
}

bool TInmemPropertyDecl::IsArray(TContext /*context*/) const {
    return value_.IsArray();
}

const TCIMValue& TInmemPropertyDecl::GetValue(TContext /*context*/) const {
    return value_;
}

void TInmemPropertyDecl::SetValue(const TCIMValue& value, TContext /*context*/) {
    value_ = value;
}

bool TInmemPropertyDecl::operator==(const ICIMPropertyDecl& other) const {
    return SameName(name_, other.GetName({}));
}

bool TInmemPropertyDecl::operator<(const ICIMPropertyDecl& other) const {
    return TNameLess()(name_, other.GetName({}));
}

ICIMPropertyDecl& TInmemPropertyDecl::operator=(const ICIMPropertyDecl& /*other*/) {
    return *this;
}

TInmemPropertyDecl& TInmemPropertyDecl::operator=(const TInmemPropertyDecl& /*other*/) {
    return *this;
}

boost::shared_ptr<ICIMNamespace> TInmemPropertyDecl::OwnNamespace() const {
    const boost::shared_ptr<ICIMClass> cimClass = class_.lock();
    return cimClass ? cimClass->GetNamespace({}) : nullptr;
}

boost::shared_ptr<ICIMNamedElement> TInmemPropertyDecl::OwnElement() {
    return shared_from_this();
}

}  // namespace NQELVSK20
