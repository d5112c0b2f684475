#pragma once

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <string>

#include "vskcore/ICIMClass.h"
#include "vskcore/ICIMInstance.h"
#include "vskcore/ICIMQualifierDecl.h"

namespace NQELVSK20 {

class ICIMIndicationFilter;
class ICIMSubscription;
class INamespaceProvider;
class IProvider;

/// A CIM namespace. Operations stand in slot order.
class ICIMNamespace {
public:
    using ClassCallback = ICIMClass::ClassCallback;
    using InstanceCallback = ICIMInstance::InstanceCallback;
    using ProviderCallback = boost::function<bool(boost::shared_ptr<IProvider>)>;
    using QualifierDeclCallback = boost::function<bool(boost::shared_ptr<ICIMQualifierDecl>)>;

    virtual ~ICIMNamespace() = default;
    virtual boost::shared_ptr<INamespaceProvider> GetNamespaceProvider(TContext context) = 0;
    virtual void SetUpcallNamespace(boost::shared_ptr<ICIMNamespace> upcall, TContext context) = 0;
    virtual void AddUnderlyingNamespace(boost::shared_ptr<ICIMNamespace> underlying, TContext context) = 0;

    /// Makes a class, not yet entered into the namespace. The caller shares ownership.
    virtual boost::shared_ptr<ICIMClass> AllocateClass(const std::string& name,
                                                       boost::shared_ptr<ICIMClass> superclass,
                                                       TContext context) = 0;

    /// The class of a name, without regard to case; empty when there is none.
    virtual boost::shared_ptr<ICIMClass> GetClass(const std::string& name, TContext context) = 0;
    virtual void EnumerateRootClasses(const ClassCallback& callback, TContext context) = 0;
    virtual void EnumerateProviders(const ProviderCallback& callback, TContext context) = 0;

    /// Makes a qualifier declaration, not yet entered into the namespace. The caller shares ownership.
    virtual boost::shared_ptr<ICIMQualifierDecl> AllocateQualifierDecl(const std::string& name,
                                                                       const TCIMValue& defaultValue,
                                                                       ICIMQualifierDecl::EScope scope,
                                                                       ICIMQualifierDecl::EFlavor flavor,
                                                                       TContext context) = 0;

    /// The qualifier declaration of a name, without regard to case; empty when there is none.
    virtual boost::shared_ptr<ICIMQualifierDecl> GetQualifierDecl(const std::string& name,
                                                                  TContext context) const = 0;
    virtual void EnumerateQualifierDecls(const QualifierDeclCallback& callback, TContext context) const = 0;
    virtual boost::shared_ptr<ICIMSubscription> Subscribe(boost::shared_ptr<ICIMIndicationFilter> filter,
                                                          const InstanceCallback& callback,
                                                          TContext context) = 0;
    virtual boost::shared_ptr<ICIMInstance> GetInstance(const TCIMReference& reference, TContext context) = 0;
    virtual void DeleteInstance(const TCIMReference& reference, TContext context) = 0;
    virtual void ModifyInstance(const TCIMReference& reference, TContext values, TContext context) = 0;
    virtual void ExecuteQuery(const InstanceCallback& callback, std::string& query,
                              const InstanceCallback& secondCallback, TContext context) = 0;
    virtual void ClearInstances() = 0;
    virtual ICIMNamespace& operator=(ICIMNamespace& other) = 0;
};

}  // namespace NQELVSK20
