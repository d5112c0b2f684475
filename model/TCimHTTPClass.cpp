#include "model/TCimHTTPClass.h"

#include <boost/pointer_cast.hpp>
#include <utility>

#include "connection/Precondition.h"
#include "connection/Refuse.h"
#include "connection/TCimHTTPNamespace.h"
#include "model/TCimHTTPMethodDecl.h"
#include "model/TCimHTTPPropertyDecl.h"
#include "model/TCimHTTPQualifier.h"
#include "namespace/TNamespaceMembers.h"

namespace NQELVSK20 {

TCimHTTPClass::TCimHTTPClass(boost::shared_ptr<ICIMNamespace> nameSpace, unsigned int timeout,
                             std::string name, boost::shared_ptr<TCimHTTPClass>)
    : namespace_(nameSpace), name_(std::move(name)), timeout_(timeout) {}

boost::shared_ptr<TCimHTTPNamespace> TCimHTTPClass::OwnNamespace(const char* operation) const {
    auto nameSpace = boost::dynamic_pointer_cast<TCimHTTPNamespace>(namespace_.lock());
    PointerIsSet(nameSpace != nullptr, std::string("TCimHTTPClass::") + operation + " " + name_);
    return nameSpace;
}

bool TCimHTTPClass::IsRoot() const {
    return name_ == "<root>";
}

void TCimHTTPClass::Validate(TContext) {}

void TCimHTTPClass::Commit(TContext context) {
    const auto nameSpace = OwnNamespace("Commit");
    if (!nameSpace) {
        return;
    }
    const auto replaced = TNamespaceMembers::AddClass(*nameSpace, shared_from_this());
    if (const auto superclass = SuperclassToAttachTo(context)) {
        superclass->AddSubclass(shared_from_this(), context);
    }
    // Below the same superclass this class has taken the other's place by now.
    if (replaced) {
        replaced->LeaveTree();
    }
    registered_ = true;
}

boost::shared_ptr<ICIMClass> TCimHTTPClass::SuperclassToAttachTo(TContext context) const {
    auto asked = GetSuperClass(std::move(context));
    return asked ? asked : superclass_.lock();
}

void TCimHTTPClass::LeaveNamespace() {
    isInNamespace_ = false;
    ForgetInstances();
}

const std::string& TCimHTTPClass::GetName(TContext) const {
    return name_;
}

boost::shared_ptr<ICIMNamespace> TCimHTTPClass::GetNamespace(TContext) const {
    return namespace_.lock();
}

boost::shared_ptr<ICIMPropertyDecl> TCimHTTPClass::AllocatePropertyDecl(const std::string& name,
                                                                        const TCIMValue& defaultValue,
                                                                        TContext) {
    return boost::shared_ptr<ICIMPropertyDecl>(
        new TCimHTTPPropertyDecl(shared_from_this(), name, defaultValue));
}

boost::shared_ptr<ICIMMethodDecl> TCimHTTPClass::AllocateMethodDecl(const std::string& name,
                                                                    TCIMValue::TCIMType returnType,
                                                                    TContext) {
    return boost::shared_ptr<ICIMMethodDecl>(new TCimHTTPMethodDecl(shared_from_this(), name, returnType));
}

boost::shared_ptr<ICIMQualifier> TCimHTTPClass::AllocateQualifier(const std::string& name,
                                                                  const TCIMValue& value, TContext) {
    return TCimHTTPQualifier::Allocate(namespace_.lock(), name, value,
                                       boost::shared_ptr<ICIMNamedElement>(shared_from_this()));
}

boost::shared_ptr<ICIMQualifier> TCimHTTPClass::AllocateQualifier(
    boost::shared_ptr<ICIMQualifierDecl> declaration, const TCIMValue& value, TContext) {
    return boost::shared_ptr<ICIMQualifier>(
        new TCimHTTPQualifier(namespace_.lock(), std::move(declaration), value,
                              boost::shared_ptr<ICIMNamedElement>(shared_from_this())));
}

bool TCimHTTPClass::operator==(const ICIMClass& other) const {
    return name_ == other.GetName(TContext());
}

bool TCimHTTPClass::operator<(const ICIMClass& other) const {
    return name_ < other.GetName(TContext());
}

TCimHTTPClass& TCimHTTPClass::operator=(const ICIMClass&) {
    return *this;
}

TCimHTTPClass& TCimHTTPClass::operator=(const TCimHTTPClass&) {
    return *this;
}

void TCimHTTPClass::Reserved4(TContext) {
    Refuse(eVSKNotSupported);
}

void TCimHTTPClass::Reserved5(TContext) {
    Refuse(eVSKNotSupported);
}

void TCimHTTPClass::Reserved21(const std::string&, TContext) {
    Refuse(eVSKNotSupported);
}

TCIMValue TCimHTTPClass::Reserved28(const std::string&, TContext) const {
    return TCIMValue();
}

bool TCimHTTPClass::Reserved32(TContext) const {
    return false;
}

void TCimHTTPClass::Reserved33(TContext) {}

// These take their argument and drop it.
void TCimHTTPClass::Reserved35(boost::shared_ptr<ICIMClass>, TContext) {}
void TCimHTTPClass::Reserved38(boost::shared_ptr<ICIMInstance>, TContext) {}
void TCimHTTPClass::Reserved39(boost::shared_ptr<ICIMInstance>, TContext) {}
void TCimHTTPClass::Reserved41(boost::shared_ptr<ICIMPropertyDecl>, TContext) {}
void TCimHTTPClass::Reserved42(boost::shared_ptr<ICIMMethodDecl>, TContext) {}
void TCimHTTPClass::Reserved43(boost::shared_ptr<ICIMMethodDecl>, TContext) {}

}  // namespace NQELVSK20
