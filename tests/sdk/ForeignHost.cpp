// A host that is built with an SDK of another layout: prints what a node has of a class, by the plug-in.

#include <boost/make_shared.hpp>
#include <boost/pointer_cast.hpp>
#include <iostream>
#include <string>

// As that SDK has them.
#include "ICIMClass.h"
#include "ICIMInstance.h"
#include "TQELCNamespace.h"
#include "TUnionNamespace.h"
#include "cimhttp/TCimHTTPNamespace.h"
#include "cimhttp/TCimHTTPNamespaceProvider.h"

using namespace NQELVSK20;

namespace {

boost::shared_ptr<TCimHTTPNamespace> Connected(const std::string& node) {
    const auto provider = TCimHTTPNamespaceProvider::GetInstance();
    const TContext context{{"pluginNameQualDeclValue", TCIMValue("cimhttp.nsp")}};
    const auto nameSpace = boost::dynamic_pointer_cast<TCimHTTPNamespace>(
        provider->AllocateNamespace(context, false, "root/cimv2"));
    const auto common = boost::make_shared<TQELCNamespace>();
    common->SetUpcallNamespace(boost::make_shared<TUnionNamespace>(), TContext());
    nameSpace->SetUpcallNamespace(common, TContext());
    nameSpace->Init();
    nameSpace->connect(node, "", "");
    return nameSpace;
}

}  // namespace

// NODE CLASS
int main(int, char** arguments) {
    TCimHTTPNamespaceProvider::Initialize();
    if (TCimHTTPNamespaceProvider::GetInstance()->GetType(TContext()) !=
        INamespaceProvider::HOST_RemoteProvider) {
        return 2;
    }
    const auto nameSpace = Connected(arguments[1]);
    const auto found = nameSpace->GetClass(arguments[2], TContext());
    if (!found) {
        return 3;
    }
    std::cout << found->GetName(TContext()) << '\n';
    const auto print = [](const boost::shared_ptr<ICIMInstance>& instance) {
        std::cout << instance->GetReference(TContext()).GetPath() << '\n';
        return true;
    };
    found->EnumerateInstances(print, false, TContext());
    nameSpace->disconnect();
}
