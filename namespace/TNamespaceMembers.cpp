#include "namespace/TNamespaceMembers.h"

#include <utility>

#include "connection/TCimHTTPNamespace.h"
#include "model/TCimHTTPClass.h"
#include "model/TCimHTTPQualifierDecl.h"

namespace NQELVSK20 {

void TNamespaceMembers::AddClass(TCimHTTPNamespace& nameSpace, boost::shared_ptr<TCimHTTPClass> cimClass) {
    nameSpace.AddClass(std::move(cimClass));
}

void TNamespaceMembers::AddQualifierDecl(TCimHTTPNamespace& nameSpace,
                                         boost::shared_ptr<TCimHTTPQualifierDecl> declaration) {
    nameSpace.AddQualifierDecl(std::move(declaration));
}

boost::shared_ptr<ICIMClass> TNamespaceMembers::RootClass(const TCimHTTPNamespace& nameSpace) {
    return nameSpace.rootClass_;
}

}  // namespace NQELVSK20
