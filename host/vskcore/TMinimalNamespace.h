#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "vskcore/ICIMNamespace.h"

namespace NQELVSK20 {

/// A namespace that keeps an upcall namespace and offers nothing else: lookups find nothing, enumerations
/// are empty, everything that would change or allocate something throws status 31. Base of the host's own
/// namespaces.
class TMinimalNamespace : public ICIMNamespace {
public:
    boost::shared_ptr<INamespaceProvider> GetNamespaceProvider(TContext context) override;
    void SetUpcallNamespace(boost::shared_ptr<ICIMNamespace> upcall, TContext context) override;
    void AddUnderlyingNamespace(boost::shared_ptr<ICIMNamespace> underlying, TContext context) override;
    boost::shared_ptr<ICIMClass> AllocateClass(const std::string& name,
                                               boost::shared_ptr<ICIMClass> superclass,
                                               TContext context) override;
    boost::shared_ptr<ICIMClass> GetClass(const std::string& name, TContext context) override;
    void EnumerateRootClasses(const ClassCallback& callback, TContext context) override;
    void EnumerateProviders(const ProviderCallback& callback, TContext context) override;
    boost::shared_ptr<ICIMQualifierDecl> AllocateQualifierDecl(const std::string& name,
                                                               const TCIMValue& defaultValue,
                                                               ICIMQualifierDecl::EScope scope,
                                                               ICIMQualifierDecl::EFlavor flavor,
                                                               TContext context) override;
    boost::shared_ptr<ICIMQualifierDecl> GetQualifierDecl(const std::string& name,
                                                          TContext context) const override;
    void EnumerateQualifierDecls(const QualifierDeclCallback& callback, TContext context) const override;
    boost::shared_ptr<ICIMSubscription> Subscribe(boost::shared_ptr<ICIMIndicationFilter> filter,
                                                  const InstanceCallback& callback,
                                                  TContext context) override;
    boost::shared_ptr<ICIMInstance> GetInstance(const TCIMReference& reference, TContext context) override;
    void DeleteInstance(const TCIMReference& reference, TContext context) override;
    void ModifyInstance(const TCIMReference& reference, TContext values, TContext context) override;
    void ExecuteQuery(const InstanceCallback& callback, std::string& query,
                      const InstanceCallback& secondCallback, TContext context) override;
    void ClearInstances() override;

    /// Does nothing: namespaces are not copied by assignment.
    ICIMNamespace& operator=(ICIMNamespace& other) override;

protected:
    boost::shared_ptr<ICIMNamespace> UpcallNamespace() const { return upcall_; }

private:
    boost::shared_ptr<ICIMNamespace> upcall_;
};

}  // namespace NQELVSK20
