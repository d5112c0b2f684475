#include "vskcore/TMinimalNamespace.h"

#include "vskcore/INamespaceProvider.h"
#include "vskcore/TVSKException.h"

namespace NQELVSK20 {

boost::shared_ptr<INamespaceProvider> TMinimalNamespace::GetNamespaceProvider(TContext /*context*/) {
    return {};
}

void TMinimalNamespace::SetUpcallNamespace(boost::shared_ptr<ICIMNamespace> upcall, TContext /*context*/) {
    upcall_ = upcall;
}

void TMinimalNamespace::AddUnderlyingNamespace(boost::shared_ptr<ICIMNamespace> /*underlying*/,
                                               TContext /*context*/) {
    throw TVSKException(eVSKNotSupported);
}

boost::shared_ptr<ICIMClass> TMinimalNamespace::AllocateClass(const std::string& /*name*/,
                                                              boost::shared_ptr<ICIMClass> /*superclass*/,
                                                              TContext /*context*/) {
    throw TVSKException(eVSKNotSupported);
}

boost::shared_ptr<ICIMClass> TMinimalNamespace::GetClass(const std::string& /*name*/, TContext /*context*/) {
    return {};
}

void TMinimalNamespace::EnumerateRootClasses(const ClassCallback& /*callback*/, TContext /*context*/) {}

void TMinimalNamespace::EnumerateProviders(const ProviderCallback& /*callback*/, TContext /*context*/) {}

boost::shared_ptr<ICIMQualifierDecl> TMinimalNamespace::AllocateQualifierDecl(
    const std::string& /*name*/, const TCIMValue& /*defaultValue*/, ICIMQualifierDecl::EScope /*scope*/,
    ICIMQualifierDecl::EFlavor /*flavor*/, TContext /*context*/) {
    throw TVSKException(eVSKNotSupported);
}

boost::shared_ptr<ICIMQualifierDecl> TMinimalNamespace::GetQualifierDecl(const std::string& /*name*/,
                                                                         TContext /*context*/) const {
    return {};
}

void TMinimalNamespace::EnumerateQualifierDecls(const QualifierDeclCallback& /*callback*/,
                                                TContext /*context*/) const {}

boost::shared_ptr<ICIMSubscription> TMinimalNamespace::Subscribe(
    boost::shared_ptr<ICIMIndicationFilter> /*filter*/, const InstanceCallback& /*callback*/,
    TContext /*context*/) {
    throw TVSKException(eVSKNotSupported);
}

boost::shared_ptr<ICIMInstance> TMinimalNamespace::GetInstance(const TCIMReference& /*reference*/,
                                                               TContext /*context*/) {
    return {};
}

void TMinimalNamespace::DeleteInstance(const TCIMReference& /*reference*/, TContext /*context*/) {
    throw TVSKException(eVSKNotSupported);
}

void TMinimalNamespace::ModifyInstance(const TCIMReference& /*reference*/, TContext /*values*/,
                                       TContext /*context*/) {
    throw TVSKException(eVSKNotSupported);
}

void TMinimalNamespace::ExecuteQuery(const InstanceCallback& /*callback*/, std::string& /*query*/,
                                     const InstanceCallback& /*secondCallback*/, TContext /*context*/) {
    throw TVSKException(eVSKNotSupported);
}

void TMinimalNamespace::ClearInstances() {}

ICIMNamespace& TMinimalNamespace::operator=(ICIMNamespace& /*other*/) {
    return *this;
}

}  // namespace NQELVSK20
