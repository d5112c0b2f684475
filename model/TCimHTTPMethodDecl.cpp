#include "model/TCimHTTPMethodDecl.h"

#include <boost/pointer_cast.hpp>
#include <utility>

#include "model/TCimHTTPClass.h"
#include "model/TCimHTTPParameterDecl.h"
#include "namespace/names/Names.h"
#include "provider/contract/HostReport.h"

namespace NQELVSK20 {

TCimHTTPMethodDecl::TCimHTTPMethodDecl(boost::shared_ptr<TCimHTTPClass> owner, std::string name,
                                       TCIMValue::TCIMType returnType)
    : TNamedElement(std::move(name)), owner_(owner), returnType_(returnType) {}

void TCimHTTPMethodDecl::Commit(TContext context) {
    Validate(std::move(context));
    Required(owner_.lock(), "TCimHTTPMethodDecl::Commit")
        ->AddMethodDecl(boost::static_pointer_cast<TCimHTTPMethodDecl>(shared_from_this()));
}

boost::shared_ptr<ICIMClass> TCimHTTPMethodDecl::GetClass(TContext) const {
    return owner_.lock();
}

boost::shared_ptr<ICIMParameterDecl> TCimHTTPMethodDecl::AllocateParameterDecl(const std::string& name,
                                                                               TCIMValue::TCIMType type,
                                                                               TContext) {
    const auto self = boost::static_pointer_cast<TCimHTTPMethodDecl>(shared_from_this());
    return boost::shared_ptr<ICIMParameterDecl>(new TCimHTTPParameterDecl(self, name, type));
}

boost::shared_ptr<ICIMParameterDecl> TCimHTTPMethodDecl::GetParameterDecl(const std::string& name,
                                                                          TContext) const {
    return FindByName(parameters_, name);
}

void TCimHTTPMethodDecl::EnumerateParameterDecls(const ParameterCallback& callback, TContext) const {
    CallUntilFalse(parameters_, callback);
}

void TCimHTTPMethodDecl::AddParameter(boost::shared_ptr<TCimHTTPParameterDecl> parameter) {
    const std::string& name = parameter->GetName(TContext());
    const bool added = parameters_.emplace(NormalizeName(name), parameter).second;
    if (!added) {
        // "Inmem" and "property" are what the host's users know this message by.
        Refuse(kStatusAlreadyExists, kLogError,
               "Inmem: Attempt to add property " + name + " to method " + GetName(TContext()) +
                   ": already exists");
    }
}

boost::shared_ptr<ICIMNamespace> TCimHTTPMethodDecl::OwnNamespace() const {
    return Required(owner_.lock(), "TCimHTTPMethodDecl::AllocateQualifier")->GetNamespace(TContext());
}

}  // namespace NQELVSK20
