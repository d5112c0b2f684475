#include "tests/support/schema/TInmemQualifier.h"

#include "vskcore/CimNames.h"

namespace NQELVSK20 {

TInmemQualifier::TInmemQualifier(const boost::shared_ptr<ICIMNamespace>& nameSpace,
                                 const boost::shared_ptr<ICIMNamedElement>& element,
                                 const boost::shared_ptr<ICIMQualifierDecl>& declaration,
                                 const TCIMValue& value)
    : namespace_(nameSpace),
      element_(element),
      declaration_(declaration),
      value_(value),
      flavor_(declaration->GetFlavor({})) {}

void TInmemQualifier::Validate(TContext /*context*/) {}

void TInmemQualifier::Commit(TContext context) {
    element_.lock()->AddQualifier(shared_from_this(), context);
}

void TInmemQualifier::Reserved4(TContext /*context*/) {}

const std::string& TInmemQualifier::GetName(TContext context) const {
    return declaration_->GetName(context);
}

boost::shared_ptr<ICIMNamespace> TInmemQualifier::GetNamespace(TContext /*context*/) const {
    return namespace_.lock();
}

TCIMValue::TCIMType TInmemQualifier::GetType(TContext /*context*/) const {
    return value_.GetType();
}

bool TInmemQualifier::IsArray(TContext /*context*/) const {
    return value_.IsArray();
}

boost::shared_ptr<ICIMQualifierDecl> TInmemQualifier::GetQualifierDecl(TContext /*context*/) const {
    return declaration_;
}

const TCIMValue& TInmemQualifier::GetValue(TContext /*context*/) const {
    return value_;
}

void TInmemQualifier::SetValue(const TCIMValue& value, TContext /*context*/) {
    value_ = value;
}

void TInmemQualifier::AddFlavor(unsigned int bits, TContext /*context*/) {
    flavor_ |= bits;
}

void TInmemQualifier::RemoveFlavor(unsigned int bits, TContext /*context*/) {
    flavor_ &= ~bits;
}

unsigned int TInmemQualifier::GetFlavor(TContext /*context*/) const {
    return flavor_;
}

bool TInmemQualifier::operator==(const ICIMQualifier& other) const {
    return SameName(GetName({}), other.GetName({}));
}

bool TInmemQualifier::operator<(const ICIMQualifier& other) const {
    return TNameLess()(GetName({}), other.GetName({}));
}

bool TInmemQualifier::IsPropagated(TContext /*context*/) const {
    return false;
}

ICIMQualifier& TInmemQualifier::operator=(const ICIMQualifier& /*other*/) {
    return *this;
}

TInmemQualifier& TInmemQualifier::operator=(const TInmemQualifier& /*other*/) {
    return *this;
}

}  // namespace NQELVSK20
