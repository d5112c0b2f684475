#include "model/TCimHTTPQualifier.h"

#include <utility>

#include "namespace/names/Names.h"
#include "provider/contract/Refuse.h"
#include "vskcore/ICIMNamedElement.h"
#include "vskcore/ICIMNamespace.h"

namespace NQELVSK20 {

TCimHTTPQualifier::TCimHTTPQualifier(boost::shared_ptr<ICIMNamespace> nameSpace,
                                     boost::shared_ptr<ICIMQualifierDecl> declaration, const TCIMValue& value,
                                     boost::weak_ptr<ICIMNamedElement> element)
    : namespace_(nameSpace),
      declaration_(Required(std::move(declaration), "TCimHTTPQualifier::TCimHTTPQualifier")),
      value_(value),
      flavor_(declaration_->GetFlavor(TContext())),
      propagated_(!(value_ != declaration_->GetValue(TContext()))),
      element_(std::move(element)) {}

boost::shared_ptr<TCimHTTPQualifier> TCimHTTPQualifier::Allocate(boost::shared_ptr<ICIMNamespace> nameSpace,
                                                                 const std::string& name,
                                                                 const TCIMValue& value,
                                                                 boost::weak_ptr<ICIMNamedElement> element) {
    auto declaration = Required(nameSpace, "TCimHTTPQualifier::Allocate")->GetQualifierDecl(name, TContext());
    if (!declaration) {
        Refuse(eVSKNotFound);
    }
    return boost::shared_ptr<TCimHTTPQualifier>(
        new TCimHTTPQualifier(std::move(nameSpace), std::move(declaration), value, std::move(element)));
}

void TCimHTTPQualifier::Validate(TContext) {}

void TCimHTTPQualifier::Commit(TContext context) {
    Required(element_.lock(), "TCimHTTPQualifier::Commit")
        ->AddQualifier(shared_from_this(), std::move(context));
}

void TCimHTTPQualifier::Reserved4(TContext) {}

const std::string& TCimHTTPQualifier::GetName(TContext context) const {
    return declaration_->GetName(std::move(context));
}

boost::shared_ptr<ICIMNamespace> TCimHTTPQualifier::GetNamespace(TContext) const {
    return namespace_.lock();
}

TCIMValue::TCIMType TCimHTTPQualifier::GetType(TContext) const {
    return value_.GetType();
}

bool TCimHTTPQualifier::IsArray(TContext) const {
    return value_.IsArray();
}

boost::shared_ptr<ICIMQualifierDecl> TCimHTTPQualifier::GetQualifierDecl(TContext) const {
    return declaration_;
}

const TCIMValue& TCimHTTPQualifier::GetValue(TContext) const {
    return value_;
}

void TCimHTTPQualifier::SetValue(const TCIMValue& value, TContext) {
    value_ = value;
    propagated_ = false;
}

void TCimHTTPQualifier::AddFlavor(unsigned int bits, TContext) {
    flavor_ |= bits;
    propagated_ = false;
}

void TCimHTTPQualifier::RemoveFlavor(unsigned int bits, TContext) {
    flavor_ &= ~bits;
    propagated_ = false;
}

unsigned int TCimHTTPQualifier::GetFlavor(TContext) const {
    return flavor_;
}

bool TCimHTTPQualifier::operator==(const ICIMQualifier& other) const {
    return EqualByName(GetName(TContext()), other.GetName(TContext()));
}

bool TCimHTTPQualifier::operator<(const ICIMQualifier& other) const {
    return LessByName(GetName(TContext()), other.GetName(TContext()));
}

bool TCimHTTPQualifier::IsPropagated(TContext) const {
    return propagated_;
}

TCimHTTPQualifier& TCimHTTPQualifier::operator=(const ICIMQualifier&) {
    return *this;
}

TCimHTTPQualifier& TCimHTTPQualifier::operator=(const TCimHTTPQualifier&) {
    return *this;
}

}  // namespace NQELVSK20
