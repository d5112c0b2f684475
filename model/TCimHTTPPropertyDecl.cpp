#include "model/TCimHTTPPropertyDecl.h"

#include <utility>

#include "model/TCimHTTPClass.h"
#include "provider/contract/HostReport.h"

namespace NQELVSK20 {

TCimHTTPPropertyDecl::TCimHTTPPropertyDecl(boost::shared_ptr<TCimHTTPClass> owner, std::string name,
                                           const TCIMValue& defaultValue)
    : TNamedElement(std::move(name)), owner_(owner), value_(defaultValue) {}

void TCimHTTPPropertyDecl::Commit(TContext context) {
    Required(owner_.lock(), "TCimHTTPPropertyDecl::Commit")
        ->AddPropertyDecl(shared_from_this(), std::move(context));
}

boost::shared_ptr<ICIMClass> TCimHTTPPropertyDecl::GetClass(TContext) const {
    return owner_.lock();
}

boost::shared_ptr<ICIMNamespace> TCimHTTPPropertyDecl::OwnNamespace() const {
    return Required(owner_.lock(), "TCimHTTPPropertyDecl::AllocateQualifier")->GetNamespace(TContext());
}

}  // namespace NQELVSK20
