#include "tests/support/schema/TInmemParameterDecl.h"

#include "tests/support/schema/IsCimName.h"
#include "tests/support/schema/TInmemMethodDecl.h"
#include "vskcore/ICIMClass.h"

namespace NQELVSK20 {

TInmemParameterDecl::TInmemParameterDecl(const boost::shared_ptr<TInmemMethodDecl>& method,
                                         const std::string& name, TCIMValue::TCIMType type)
    : method_(method), name_(name), type_(type) {}

void TInmemParameterDecl::Validate(TContext /*context*/) {
    if (!IsCimName(name_)) {
        throw TVSKException(eVSKInvalidName);
    }
}

void TInmemParameterDecl::Commit(TContext context) {
    Validate(context);
    method_.lock()->AddParameter(shared_from_this());
}

const std::string& TInmemParameterDecl::GetName(TContext /*context*/) const {
    return name_;
}

boost::shared_ptr<ICIMMethodDecl> TInmemParameterDecl::GetMethod(TContext /*context*/) const {
    return method_.lock();
}

TCIMValue::TCIMType TInmemParameterDecl::GetType(TContext /*context*/) const {
    return type_;
}

bool TInmemParameterDecl::IsArray(TContext /*context*/) const {
    return type_ >= TCIMValue::TCIMType::eUnknownArray;
}

bool TInmemParameterDecl::operator==(const ICIMParameterDecl& other) const {
    return SameName(name_, other.GetName({}));
}

bool TInmemParameterDecl::operator<(const ICIMParameterDecl& other) const {
    return TNameLess()(name_, other.GetName({}));
}

ICIMParameterDecl& TInmemParameterDecl::operator=(const ICIMParameterDecl& /*other*/) {
    return *this;
}

TInmemParameterDecl& TInmemParameterDecl::operator=(const TInmemParameterDecl& /*other*/) {
    return *this;
}

boost::shared_ptr<ICIMNamespace> TInmemParameterDecl::OwnNamespace() const {
    const boost::shared_ptr<TInmemMethodDecl> method = method_.lock();
    const auto cimClass = method ? method->GetClass({}) : nullptr;
    return cimClass ? cimClass->GetNamespace({}) : nullptr;
}

boost::shared_ptr<ICIMNamedElement> TInmemParameterDecl::OwnElement() {
    return shared_from_this();
}

}  // namespace NQELVSK20
