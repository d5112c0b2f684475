// Questions that a namespace passes straight to the server, and the operations it does not offer.

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMPropertyList.h>

#include <boost/pointer_cast.hpp>
#include <utility>

#include "connection/Log.h"
#include "connection/PegClient.h"
#include "connection/PegText.h"
#include "connection/Precondition.h"
#include "connection/Refuse.h"
#include "connection/TCimHTTPNamespace.h"
#include "model/TCimHTTPClass.h"
#include "provider/TCimHTTPNamespaceProvider.h"
#include "vskcore/ICIMIndicationFilter.h"
#include "vskcore/ICIMSubscription.h"
#include "vskcore/TVSKException.h"

namespace NQELVSK20 {

namespace {

constexpr unsigned int kClassNamesTimeoutMs = 3000;
constexpr unsigned int kInstanceNamesTimeoutMs = 15000;
constexpr unsigned int kWalkTimeoutMs = 60000;

// The library's names are built for what their constructors refuse: a malformed name never reaches a server.
void CheckNames(const std::string& nameSpace, const std::string& className) {
    FromNamespace(nameSpace);
    FromName(className);
}

void ReadProperty(const Pegasus::CIMInstance& instance, Pegasus::Uint32 index) {
    try {
        const Pegasus::CIMConstProperty property = instance.getProperty(index);
        property.getName();
        property.getValue().toString();
    } catch (const Pegasus::Exception&) {
        // One unreadable property does not end the walk.
    }
}

void ReadInstance(const Pegasus::CIMInstance& instance) {
    try {
        instance.getPath().toString();
        const Pegasus::Uint32 count = instance.getPropertyCount();
        for (Pegasus::Uint32 i = 0; i < count; ++i) {
            ReadProperty(instance, i);
        }
    } catch (const Pegasus::Exception&) {
        // One unreadable instance does not end the walk.
    }
}

}  // namespace

bool TCimHTTPNamespace::EnumerateClassNames(std::string nameSpace, std::string className,
                                            std::vector<std::string>& names, bool) {
    LogTrace("Entering TCimHTTPNamespace::EnumerateClassNames");
    CheckNames(nameSpace, className);
    names.clear();
    if (firstClient_ != nullptr) {
        names = firstClient_->EnumerateClassNames(nameSpace, className, false, kClassNamesTimeoutMs);
    }
    LogTrace("Exiting TCimHTTPNamespace::EnumerateClassNames");
    return !names.empty();
}

bool TCimHTTPNamespace::EnumerateInstanceNames(std::string nameSpace, std::string className,
                                               std::vector<std::string>& names) {
    LogTrace("Entering TCimHTTPNamespace::EnumerateInstanceNames");
    CheckNames(nameSpace, className);
    names.clear();
    if (firstClient_ != nullptr) {
        names = firstClient_->EnumerateInstanceNames(nameSpace, className, kInstanceNamesTimeoutMs);
    }
    LogTrace("Exiting TCimHTTPNamespace::EnumerateInstanceNames");
    return !names.empty();
}

bool TCimHTTPNamespace::EnumerateInstances(const Pegasus::CIMNamespaceName& nameSpace,
                                           const Pegasus::CIMName& className) {
    if (firstClient_ == nullptr) {
        return true;
    }
    const Pegasus::Array<Pegasus::CIMInstance> instances =
        firstClient_->EnumerateInstances(ToText(nameSpace), ToText(className), kWalkTimeoutMs, true, true,
                                         false, false, Pegasus::CIMPropertyList());
    for (Pegasus::Uint32 i = 0; i < instances.size(); ++i) {
        ReadInstance(instances[i]);
    }
    return true;
}

boost::shared_ptr<INamespaceProvider> TCimHTTPNamespace::GetNamespaceProvider(TContext) {
    return TCimHTTPNamespaceProvider::GetInstance();
}

void TCimHTTPNamespace::SetUpcallNamespace(boost::shared_ptr<ICIMNamespace> upcall, TContext) {
    upcall_ = std::move(upcall);
}

boost::shared_ptr<ICIMInstance> TCimHTTPNamespace::GetInstance(const TCIMReference& reference,
                                                               TContext context) {
    ICIMNamespace& self = *this;
    const auto cimClass =
        boost::dynamic_pointer_cast<TCimHTTPClass>(self.GetClass(reference.GetClassName(), TContext()));
    if (!PointerIsSet(cimClass != nullptr, "TCimHTTPNamespace::GetInstance " + reference.GetPath())) {
        return {};
    }
    return cimClass->FindInstance(reference, std::move(context));
}

// A namespace of this kind has no providers of its own and keeps no instances.
void TCimHTTPNamespace::EnumerateProviders(const ProviderCallback&, TContext) {}
void TCimHTTPNamespace::ClearInstances() {}

void TCimHTTPNamespace::AddUnderlyingNamespace(boost::shared_ptr<ICIMNamespace>, TContext) {
    Refuse(eVSKNotSupported);
}

boost::shared_ptr<ICIMSubscription> TCimHTTPNamespace::Subscribe(boost::shared_ptr<ICIMIndicationFilter>,
                                                                 const InstanceCallback&, TContext) {
    Refuse(eVSKNotOffered);
}

void TCimHTTPNamespace::DeleteInstance(const TCIMReference&, TContext) {
    Refuse(eVSKNotOffered);
}

void TCimHTTPNamespace::ModifyInstance(const TCIMReference&, TContext, TContext) {
    Refuse(eVSKNotOffered);
}

void TCimHTTPNamespace::ExecuteQuery(const InstanceCallback&, std::string&, const InstanceCallback&,
                                     TContext) {
    Refuse(eVSKNotOffered);
}

}  // namespace NQELVSK20
