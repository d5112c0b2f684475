#include "tests/support/schema/TInmemQualifierDecl.h"

#include "tests/support/schema/IsCimName.h"
#include "tests/support/schema/TInmemUnion.h"
#include "vskcore/CimNames.h"
#include "vskcore/TVSKException.h"

namespace NQELVSK20 {

TInmemQualifierDecl::TInmemQualifierDecl(const boost::shared_ptr<TInmemUnion>& nameSpace,
                                         const std::string& name, const TCIMValue& defaultValue,
                                         unsigned int scope, unsigned int flavor)
    : namespace_(nameSpace), name_(name), value_(defaultValue), scope_(scope), flavor_(flavor) {}

void TInmemQualifierDecl::Validate(TContext /*context*/) {
    if (!IsCimName(name_)) {
        throw TVSKException(eVSKInvalidName);
    }
}

void TInmemQualifierDecl::Commit(TContext context) {
    Validate(context);
    namespace_.lock()->AddQualifierDecl(shared_from_this());
}

void TInmemQualifierDecl::Reserved4(TContext /*context*/) {}

const std::string& TInmemQualifierDecl::GetName(TContext /*context*/) const {
    return name_;
}

boost::shared_ptr<ICIMNamespace> TInmemQualifierDecl::GetNamespace(TContext /*context*/) const {
    return namespace_.lock();
}

TCIMValue::TCIMType TInmemQualifierDecl::GetType(TContext /*context*/) const {
    return value_.GetType();
}

bool TInmemQualifierDecl::IsArray(TContext /*context*/) const {
    return value_.IsArray();
}

const TCIMValue& TInmemQualifierDecl::GetValue(TContext /*context*/) const {
    return value_;
}

void TInmemQualifierDecl::SetValue(const TCIMValue& value, TContext /*context*/) {
    value_ = value;
}

unsigned int TInmemQualifierDecl::GetScope(TContext /*context*/) const {
    return scope_;
}

void TInmemQualifierDecl::AddFlavor(unsigned int bits, TContext /*context*/) {
    flavor_ |= bits;
}

void TInmemQualifierDecl::RemoveFlavor(unsigned int bits, TContext /*context*/) {
    flavor_ &= ~bits;
}

unsigned int TInmemQualifierDecl::GetFlavor(TContext /*context*/) const {
    return flavor_;
}

bool TInmemQualifierDecl::operator==(const ICIMQualifierDecl& other) const {
    return SameName(name_, other.GetName({}));
}

bool TInmemQualifierDecl::operator<(const ICIMQualifierDecl& other) const {
    return TNameLess()(name_, other.GetName({}));
}

ICIMQualifierDecl& TInmemQualifierDecl::operator=(const ICIMQualifierDecl& /*other*/) {
    return *this;
}

TInmemQualifierDecl& TInmemQualifierDecl::operator=(const TInmemQualifierDecl& /*other*/) {
    return *this;
}

}  // namespace NQELVSK20
