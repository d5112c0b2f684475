#include "model/TCimHTTPPropertyDecl.h"

#include <utility>

#include "model/TCimHTTPClass.h"
#include "provider/contract/Refuse.h"

namespace NQELVSK20 {

TCimHTTPPropertyDecl::TCimHTTPPropertyDecl(boost::shared_ptr<TCimHTTPClass> owner, std::string name,
                                           const TCIMValue& defaultValue)
    : TNamedElement(std::move(name)), owner_(owner), value_(defaultValue) {}

void TCimHTTPPropertyDecl::Commit(TContext context) {
    Required(owner_.lock(), "TCimHTTPPropertyDecl::Commit")
        ->AddPropertyDecl(shared_from_this(), std::move(context));
}

void TCimHTTPPropertyDecl::Reserved10(TContext) {}

boost::shared_ptr<ICIMClass> TCimHTTPPropertyDecl::GetClass(TContext) const {
    return owner_.lock();
}

TCIMValue::TCIMType TCimHTTPPropertyDecl::GetType(TContext) const {
    return value_.GetType();
}

bool TCimHTTPPropertyDecl::IsArray(TContext) const {
    return value_.IsArray();
}

const TCIMValue& TCimHTTPPropertyDecl::GetValue(TContext) const {
    return value_;
}

void TCimHTTPPropertyDecl::SetValue(const TCIMValue& value, TContext) {
    value_ = value;
}

TCimHTTPPropertyDecl& TCimHTTPPropertyDecl::operator=(const TCimHTTPPropertyDecl&) {
    return *this;
}

boost::shared_ptr<ICIMNamespace> TCimHTTPPropertyDecl::OwnNamespace() const {
    return Required(owner_.lock(), "TCimHTTPPropertyDecl::AllocateQualifier")->GetNamespace(TContext());
}

}  // namespace NQELVSK20
