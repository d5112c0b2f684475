#include "tests/support/schema/TInmemMethodDecl.h"

#include "tests/support/schema/IsCimName.h"
#include "tests/support/schema/TInmemClass.h"
#include "tests/support/schema/TInmemParameterDecl.h"

namespace NQELVSK20 {

TInmemMethodDecl::TInmemMethodDecl(const boost::shared_ptr<TInmemClass>& cimClass, const std::string& name,
                                   TCIMValue::TCIMType returnType)
    : class_(cimClass), name_(name), returnType_(returnType) {}

void TInmemMethodDecl::Validate(TContext /*context*/) {
    if (!IsCimName(name_)) {
        throw TVSKException(eVSKInvalidName);
    }
}

void TInmemMethodDecl::Commit(TContext context) {
    Validate(context);
    class_.lock()->AddMethodDecl(shared_from_this());
}

const std::string& TInmemMethodDecl::GetName(TContext /*context*/) const {
    return name_;
}

boost::shared_ptr<ICIMClass> TInmemMethodDecl::GetClass(TContext /*context*/) const {
    return class_.lock();
}

TCIMValue::TCIMType TInmemMethodDecl::GetType(TContext /*context*/) const {
    return returnType_;
}

boost::shared_ptr<ICIMParameterDecl> TInmemMethodDecl::AllocateParameterDecl(const std::string& name,
                                                                             TCIMValue::TCIMType type,
                                                                             TContext /*context*/) {
    return boost::make_shared<TInmemParameterDecl>(shared_from_this(), name, type);
}

boost::shared_ptr<ICIMParameterDecl> TInmemMethodDecl::GetParameterDecl(const std::string& name,
                                                                        TContext /*context*/) const {
    const auto found = parameters_.find(name);
    return found != parameters_.end() ? found->second : nullptr;
}

void TInmemMethodDecl::EnumerateParameterDecls(const ParameterCallback& callback,
                                               TContext /*context*/) const {
    for (const auto& [name, parameter] : parameters_) {
        if (!callback(parameter)) {
            return;
        }
    }
}

bool TInmemMethodDecl::operator==(const ICIMMethodDecl& other) const {
    return SameName(name_, other.GetName({}));
}

bool TInmemMethodDecl::operator<(const ICIMMethodDecl& other) const {
    return TNameLess()(name_, other.GetName({}));
}

ICIMMethodDecl& TInmemMethodDecl::operator=(const ICIMMethodDecl& /*other*/) {
    return *this;
}

TInmemMethodDecl& TInmemMethodDecl::operator=(const TInmemMethodDecl& /*other*/) {
    return *this;
}

void TInmemMethodDecl::AddParameter(const boost::shared_ptr<ICIMParameterDecl>& parameter) {
    if (!parameters_.emplace(parameter->GetName({}), parameter).second) {
        throw TVSKException(eVSKAlreadyExists);
    }
}

boost::shared_ptr<ICIMNamespace> TInmemMethodDecl::OwnNamespace() const {
    const boost::shared_ptr<TInmemClass> cimClass = class_.lock();
    return cimClass ? cimClass->GetNamespace({}) : nullptr;
}

boost::shared_ptr<ICIMNamedElement> TInmemMethodDecl::OwnElement() {
    return shared_from_this();
}

}  // namespace NQELVSK20
