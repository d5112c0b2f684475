#include "model/TCimHTTPQualifierDecl.h"

#include <utility>

#include "model/ClassNamespace.h"
#include "namespace/names/Names.h"
#include "provider/contract/Refuse.h"

namespace NQELVSK20 {

TCimHTTPQualifierDecl::TCimHTTPQualifierDecl(boost::shared_ptr<ICIMNamespace> nameSpace, std::string name,
                                             const TCIMValue& value, EScope scope, EFlavor flavor)
    : namespace_(nameSpace), name_(std::move(name)), value_(value), scope_(scope), flavor_(flavor) {}

void TCimHTTPQualifierDecl::Validate(TContext) {}

void TCimHTTPQualifierDecl::Commit(TContext) {
    Required(ClassNamespace::Behind(namespace_.lock()), "TCimHTTPQualifierDecl::Commit")
        ->Enter(shared_from_this());
}

void TCimHTTPQualifierDecl::Reserved4(TContext) {}

const std::string& TCimHTTPQualifierDecl::GetName(TContext) const {
    return name_;
}

boost::shared_ptr<ICIMNamespace> TCimHTTPQualifierDecl::GetNamespace(TContext) const {
    return namespace_.lock();
}

TCIMValue::TCIMType TCimHTTPQualifierDecl::GetType(TContext) const {
    return value_.GetType();
}

bool TCimHTTPQualifierDecl::IsArray(TContext) const {
    return value_.IsArray();
}

const TCIMValue& TCimHTTPQualifierDecl::GetValue(TContext) const {
    return value_;
}

void TCimHTTPQualifierDecl::SetValue(const TCIMValue& value, TContext) {
    value_ = value;
}

unsigned int TCimHTTPQualifierDecl::GetScope(TContext) const {
    return scope_;
}

void TCimHTTPQualifierDecl::AddFlavor(unsigned int bits, TContext) {
    flavor_ |= bits;
}

void TCimHTTPQualifierDecl::RemoveFlavor(unsigned int bits, TContext) {
    flavor_ &= ~bits;
}

unsigned int TCimHTTPQualifierDecl::GetFlavor(TContext) const {
    return flavor_;
}

bool TCimHTTPQualifierDecl::operator==(const ICIMQualifierDecl& other) const {
    return EqualByName(name_, other.GetName(TContext()));
}

bool TCimHTTPQualifierDecl::operator<(const ICIMQualifierDecl& other) const {
    return LessByName(name_, other.GetName(TContext()));
}

TCimHTTPQualifierDecl& TCimHTTPQualifierDecl::operator=(const ICIMQualifierDecl&) {
    return *this;
}

TCimHTTPQualifierDecl& TCimHTTPQualifierDecl::operator=(const TCimHTTPQualifierDecl&) {
    return *this;
}

}  // namespace NQELVSK20
