#include "tests/support/schema/TInmemUnion.h"

#include <boost/make_shared.hpp>

#include "tests/support/schema/TInmemClass.h"
#include "tests/support/schema/TInmemQualifierDecl.h"

namespace NQELVSK20 {

TInmemUnion::~TInmemUnion() {
    TInmemUnion::ClearInstances();
}

boost::shared_ptr<ICIMClass> TInmemUnion::AllocateClass(const std::string& name,
                                                        boost::shared_ptr<ICIMClass> superclass,
                                                        TContext /*context*/) {
    return boost::make_shared<TInmemClass>(shared_from_this(), name, superclass);
}

boost::shared_ptr<ICIMClass> TInmemUnion::GetClass(const std::string& name, TContext /*context*/) {
    const auto found = classes_.find(name);
    return found != classes_.end() ? found->second : nullptr;
}

void TInmemUnion::EnumerateRootClasses(const ClassCallback& callback, TContext context) {
    for (const auto& [name, cimClass] : classes_) {
        if (!cimClass->IsTopLevel({})) {
            continue;
        }
        if (!callback(cimClass)) {
            return;
        }
        cimClass->EnumerateSubclasses(callback, true, context);
    }
}

boost::shared_ptr<ICIMQualifierDecl> TInmemUnion::AllocateQualifierDecl(const std::string& name,
                                                                        const TCIMValue& defaultValue,
                                                                        ICIMQualifierDecl::EScope scope,
                                                                        ICIMQualifierDecl::EFlavor flavor,
                                                                        TContext /*context*/) {
    return boost::make_shared<TInmemQualifierDecl>(shared_from_this(), name, defaultValue, scope, flavor);
}

boost::shared_ptr<ICIMQualifierDecl> TInmemUnion::GetQualifierDecl(const std::string& name,
                                                                   TContext /*context*/) const {
    const auto found = qualifierDecls_.find(name);
    return found != qualifierDecls_.end() ? found->second : nullptr;
}

void TInmemUnion::EnumerateQualifierDecls(const QualifierDeclCallback& callback, TContext /*context*/) const {
    for (const auto& [name, declaration] : qualifierDecls_) {
        if (!callback(declaration)) {
            return;
        }
    }
}

void TInmemUnion::ClearInstances() {
    for (const auto& [name, cimClass] : classes_) {
        cimClass->ClearInstances();
    }
}

void TInmemUnion::AddClass(boost::shared_ptr<TInmemClass> cimClass) {
    boost::shared_ptr<TInmemClass>& place = classes_[cimClass->GetName({})];
    if (place && place != cimClass) {
        place->ClearInstances();
    }
    place = cimClass;
}

void TInmemUnion::AddQualifierDecl(boost::shared_ptr<ICIMQualifierDecl> declaration) {
    qualifierDecls_[declaration->GetName({})] = declaration;
}

}  // namespace NQELVSK20
