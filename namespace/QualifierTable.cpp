// The qualifier declarations of a namespace.

#include <boost/pointer_cast.hpp>

#include "connection/Log.h"
#include "connection/Refuse.h"
#include "connection/TCimHTTPNamespace.h"
#include "model/TCimHTTPQualifierDecl.h"

namespace NQELVSK20 {

boost::shared_ptr<ICIMQualifierDecl> TCimHTTPNamespace::AllocateQualifierDecl(
    const std::string& name, const TCIMValue& defaultValue, ICIMQualifierDecl::EScope scope,
    ICIMQualifierDecl::EFlavor flavor, TContext) {
    return boost::shared_ptr<ICIMQualifierDecl>(
        new TCimHTTPQualifierDecl(shared_from_this(), name, defaultValue, scope, flavor));
}

void TCimHTTPNamespace::DeclarePluginQualifier(const std::string& name, const std::string& defaultValue) {
    AddQualifierDecl(boost::dynamic_pointer_cast<TCimHTTPQualifierDecl>(
        AllocateQualifierDecl(name, TCIMValue(defaultValue), ICIMQualifierDecl::eScopeNone,
                              ICIMQualifierDecl::eFlavorNone, TContext())));
}

void TCimHTTPNamespace::AddQualifierDecl(boost::shared_ptr<TCimHTTPQualifierDecl> declaration) {
    const std::string name = declaration->GetName(TContext());
    const auto [entry, isNew] = qualifierDecls_.emplace(NormalizeName(name), declaration);
    if (isNew) {
        return;
    }
    if (!replaceDuplicates_) {
        Refuse(eVSKAlreadyExists, kLogTrace,
               "CimHTTP: TCimHTTPNamespace: qualifier " + name + " already defined");
    }
    entry->second = declaration;
}

boost::shared_ptr<ICIMQualifierDecl> TCimHTTPNamespace::GetQualifierDecl(const std::string& name,
                                                                         TContext) const {
    const auto entry = qualifierDecls_.find(NormalizeName(name));
    return entry == qualifierDecls_.end() ? boost::shared_ptr<ICIMQualifierDecl>() : entry->second;
}

void TCimHTTPNamespace::EnumerateQualifierDecls(const QualifierDeclCallback& callback, TContext) const {
    // A callback may add declarations, which leaves the walk's place in the map as it is.
    for (const auto& entry : qualifierDecls_) {
        if (!callback(entry.second)) {
            return;
        }
    }
}

}  // namespace NQELVSK20
