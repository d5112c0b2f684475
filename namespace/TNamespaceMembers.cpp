#include "namespace/TNamespaceMembers.h"

#include <utility>

#include "connection/TCimHTTPNamespace.h"
#include "model/TCimHTTPClass.h"
#include "model/TCimHTTPQualifierDecl.h"

namespace NQELVSK20 {

boost::shared_ptr<TCimHTTPClass> TNamespaceMembers::AddClass(TCimHTTPNamespace& nameSpace,
                                                             boost::shared_ptr<TCimHTTPClass> cimClass) {
    auto former = nameSpace.CachedClass(TCimHTTPNamespace::NormalizeName(cimClass->GetName(TContext())));
    nameSpace.AddClass(cimClass);
    return former == cimClass ? boost::shared_ptr<TCimHTTPClass>() : former;
}

bool TNamespaceMembers::IsReadFromNodes(const TCimHTTPNamespace& nameSpace, const std::string& name) {
    return nameSpace.failedCopies_.count(TCimHTTPNamespace::NormalizeName(name)) > 0;
}

void TNamespaceMembers::AddQualifierDecl(TCimHTTPNamespace& nameSpace,
                                         boost::shared_ptr<TCimHTTPQualifierDecl> declaration) {
    nameSpace.AddQualifierDecl(std::move(declaration));
}

boost::shared_ptr<ICIMClass> TNamespaceMembers::RootClass(const TCimHTTPNamespace& nameSpace) {
    return nameSpace.rootClass_;
}

}  // namespace NQELVSK20
