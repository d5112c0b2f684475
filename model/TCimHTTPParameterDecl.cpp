#include "model/TCimHTTPParameterDecl.h"

#include <boost/pointer_cast.hpp>
#include <utility>

#include "model/TCimHTTPMethodDecl.h"
#include "provider/contract/HostCodes.h"
#include "provider/contract/HostReport.h"
#include "vskcore/ICIMClass.h"

namespace NQELVSK20 {

TCimHTTPParameterDecl::TCimHTTPParameterDecl(boost::shared_ptr<TCimHTTPMethodDecl> owner, std::string name,
                                             TCIMValue::TCIMType type)
    : TNamedElement(std::move(name)), owner_(owner), type_(type) {}

void TCimHTTPParameterDecl::Commit(TContext) {
    Required(owner_.lock(), "TCimHTTPParameterDecl::Commit")
        ->AddParameter(boost::static_pointer_cast<TCimHTTPParameterDecl>(shared_from_this()));
}

boost::shared_ptr<ICIMMethodDecl> TCimHTTPParameterDecl::GetMethod(TContext) const {
    return owner_.lock();
}

bool TCimHTTPParameterDecl::IsArray(TContext) const {
    return type_ >= kTypeUnknownArray;
}

boost::shared_ptr<ICIMNamespace> TCimHTTPParameterDecl::OwnNamespace() const {
    constexpr const char* kWhere = "TCimHTTPParameterDecl::AllocateQualifier";
    const auto method = Required(owner_.lock(), kWhere);
    return Required(method->GetClass(TContext()), kWhere)->GetNamespace(TContext());
}

}  // namespace NQELVSK20
