// What a host does with the plug-in: registers its provider, reads instances of a server, and lets go of
// everything.

#include <boost/make_shared.hpp>
#include <boost/pointer_cast.hpp>

#include "cimhttp/TCimHTTPNamespace.h"
#include "cimhttp/TCimHTTPNamespaceProvider.h"
#include "qelc/TQELCNamespace.h"
#include "tests/loading/ReadInstances.h"
#include "union/TUnionNamespace.h"
#include "vskcore/ICIMClass.h"
#include "vskcore/ICIMInstance.h"
#include "vskcore/INamespaceProviderManager.h"
#include "vskcore/TRootObject.h"

namespace {

using namespace NQELVSK20;

boost::shared_ptr<TCimHTTPNamespace> makeNamespace() {
    const auto provider = TRootObject::GetNamespaceProviderManager()->FindProvider("cimhttp");
    const TContext context{{"pluginNameQualDeclValue", TCIMValue("cimhttp.nsp")}};
    auto nameSpace = boost::dynamic_pointer_cast<TCimHTTPNamespace>(
        provider->AllocateNamespace(context, false, "root/cimv2"));
    const auto common = boost::make_shared<TQELCNamespace>();
    common->SetUpcallNamespace(boost::make_shared<TUnionNamespace>(), TContext());
    nameSpace->SetUpcallNamespace(common, TContext());
    nameSpace->Init();
    return nameSpace;
}

}  // namespace

int readInstances(const char* host, const char* className) {
    TCimHTTPNamespaceProvider::Initialize();
    const auto nameSpace = makeNamespace();
    nameSpace->connect(host, "", "");
    int count = -1;
    if (const auto cimClass = nameSpace->GetClass(className, TContext())) {
        count = 0;
        const auto read = [&](const boost::shared_ptr<ICIMInstance>& instance) {
            count += instance->GetReference(TContext()).GetPath().empty() ? 0 : 1;
            return true;
        };
        cimClass->EnumerateInstances(read, false, TContext());
    }
    nameSpace->disconnect();
    return count;
}
