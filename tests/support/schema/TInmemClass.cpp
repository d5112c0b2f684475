#include "tests/support/schema/TInmemClass.h"

#include <boost/pointer_cast.hpp>

#include "inmem/TInmemInstance.h"
#include "tests/support/schema/IsCimName.h"
#include "tests/support/schema/TInmemMethodDecl.h"
#include "tests/support/schema/TInmemPropertyDecl.h"
#include "tests/support/schema/TInmemUnion.h"

namespace NQELVSK20 {

namespace {

[[noreturn]] void ThrowUnsupported() {
    throw TVSKException(eVSKNotSupported);
}

/// The nearest declaration of a property above a class; empty when there is none.
boost::shared_ptr<ICIMPropertyDecl> FindInherited(boost::shared_ptr<ICIMClass> superclass,
                                                  const std::string& name) {
    for (; superclass; superclass = superclass->GetSuperClass({})) {
        try {
            return superclass->GetPropertyDecl(name, {});
        } catch (const TVSKException&) {  // not declared here
        }
    }
    return {};
}

}  // namespace

TInmemClass::TInmemClass(const boost::shared_ptr<TInmemUnion>& nameSpace, const std::string& name,
                         const boost::shared_ptr<ICIMClass>& superclass)
    : namespace_(nameSpace), name_(name), superclass_(superclass) {}

void TInmemClass::Validate(TContext /*context*/) {
    if (!IsCimName(name_)) {
        throw TVSKException(eVSKInvalidName);
    }
}

void TInmemClass::Commit(TContext context) {
    Validate(context);
    namespace_.lock()->AddClass(shared_from_this());
    if (superclass_) {
        superclass_->AddSubclass(shared_from_this(), context);
    }
}

void TInmemClass::Reserved4(TContext /*context*/) {
    ThrowUnsupported();
}

void TInmemClass::Reserved5(TContext /*context*/) {
    ThrowUnsupported();
}

const std::string& TInmemClass::GetName(TContext /*context*/) const {
    return name_;
}

boost::shared_ptr<ICIMNamespace> TInmemClass::GetNamespace(TContext /*context*/) const {
    return namespace_.lock();
}

bool TInmemClass::IsAssociation(TContext context) const {
    return IsMarked("ASSOCIATION") || (superclass_ && superclass_->IsAssociation(context));
}

bool TInmemClass::IsAbstract(TContext /*context*/) const {
    return IsMarked("ABSTRACT");
}

bool TInmemClass::IsTopLevel(TContext /*context*/) const {
    return !superclass_;
}

boost::shared_ptr<ICIMClass> TInmemClass::GetSuperClass(TContext /*context*/) const {
    return superclass_;
}

void TInmemClass::EnumerateSubclasses(const ClassCallback& callback, bool deep, TContext context) const {
    for (const auto& [name, weak] : subclasses_) {
        const boost::shared_ptr<ICIMClass> subclass = weak.lock();
        if (!subclass) {
            continue;
        }
        if (!callback(subclass)) {
            return;
        }
        if (deep) {
            subclass->EnumerateSubclasses(callback, deep, context);
        }
    }
}

bool TInmemClass::IsSubclassOf(boost::shared_ptr<ICIMClass> other, TContext context) const {
    return SameName(name_, other->GetName({})) || (superclass_ && superclass_->IsSubclassOf(other, context));
}

void TInmemClass::EnumerateReferencedClasses(const ClassCallback& callback, TContext /*context*/) const {
    for (const auto& [name, property] : properties_) {
        const boost::shared_ptr<ICIMClass> referenced = property->GetValue({}).GetReferencedClass();
        if (referenced && !callback(referenced)) {
            return;
        }
    }
}

void TInmemClass::EnumerateReferencedClassesByName(const std::string& className,
                                                   const ClassCallback& callback, TContext context) const {
    EnumerateReferencedClasses(
        [&className, &callback](const boost::shared_ptr<ICIMClass>& referenced) {
            return !SameName(referenced->GetName({}), className) || callback(referenced);
        },
        context);
}

void TInmemClass::EnumerateKeyPropertyNames(const NameCallback& callback, TContext /*context*/) const {
    for (const auto& [name, property] : properties_) {
        bool found = false;
        const boost::shared_ptr<ICIMQualifier> key = property->FindQualifier("KEY", found, {});
        if (found && key->GetValue({}) && !callback(property->GetName({}))) {
            return;
        }
    }
}

boost::shared_ptr<ICIMPropertyDecl> TInmemClass::AllocatePropertyDecl(const std::string& name,
                                                                      const TCIMValue& defaultValue,
                                                                      TContext /*context*/) {
    return boost::make_shared<TInmemPropertyDecl>(shared_from_this(), name, defaultValue);
}

boost::shared_ptr<ICIMPropertyDecl> TInmemClass::GetPropertyDecl(const std::string& name,
                                                                 TContext /*context*/) const {
    const auto found = properties_.find(name);
    if (found == properties_.end()) {
        throw TVSKException(eVSKNotFound);
    }
    return found->second;
}

void TInmemClass::EnumeratePropertyDecls(const PropertyDeclCallback& callback, TContext /*context*/) const {
    for (const auto& [name, property] : properties_) {
        if (!callback(property)) {
            return;
        }
    }
}

boost::shared_ptr<ICIMNamedElement> TInmemClass::GetMemberEntry(const std::string& name,
                                                                TContext context) const {
    const auto method = methods_.find(name);
    if (properties_.count(name) == 0 && method != methods_.end()) {
        return method->second;
    }
    return GetPropertyDecl(name, context);
}

void TInmemClass::Reserved21(const std::string& /*name*/, TContext /*context*/) {
    ThrowUnsupported();
}

void TInmemClass::EnumerateMemberEntries(const MemberCallback& callback, TContext /*context*/) const {
    for (const auto& [name, property] : properties_) {
        if (!callback(property)) {
            return;
        }
    }
    for (const auto& [name, method] : methods_) {
        if (!callback(method)) {
            return;
        }
    }
}

boost::shared_ptr<ICIMInstance> TInmemClass::CreateInstance(TContext /*context*/) {
    return boost::make_shared<TInmemInstance>(shared_from_this(), 1);
}

void TInmemClass::EnumerateInstances(const InstanceCallback& callback, bool deep, TContext context) {
    bool goOn = true;
    const InstanceCallback watched = [&callback, &goOn](const boost::shared_ptr<ICIMInstance>& instance) {
        goOn = callback(instance);
        return goOn;
    };
    const auto instances = instances_;  // the callback may add or remove some
    for (const auto& [path, instance] : instances) {
        if (!watched(instance)) {
            return;
        }
    }
    if (!deep) {
        return;
    }
    EnumerateSubclasses(
        [&watched, &goOn, &context](const boost::shared_ptr<ICIMClass>& subclass) {
            subclass->EnumerateInstances(watched, true, context);
            return goOn;
        },
        false, context);
}

boost::shared_ptr<ICIMMethodDecl> TInmemClass::AllocateMethodDecl(const std::string& name,
                                                                  TCIMValue::TCIMType returnType,
                                                                  TContext /*context*/) {
    return boost::make_shared<TInmemMethodDecl>(shared_from_this(), name, returnType);
}

boost::shared_ptr<ICIMMethodDecl> TInmemClass::GetMethodDecl(const std::string& name,
                                                             TContext /*context*/) const {
    const auto found = methods_.find(name);
    return found != methods_.end() ? found->second : nullptr;
}

void TInmemClass::EnumerateMethodDecls(const MethodDeclCallback& callback, TContext /*context*/) const {
    for (const auto& [name, method] : methods_) {
        if (!callback(method)) {
            return;
        }
    }
}

TCIMValue TInmemClass::Reserved28(const std::string& /*name*/, TContext /*context*/) const {
    ThrowUnsupported();
}

bool TInmemClass::operator==(const ICIMClass& other) const {
    return SameName(name_, other.GetName({}));
}

bool TInmemClass::operator<(const ICIMClass& other) const {
    return TNameLess()(name_, other.GetName({}));
}

ICIMClass& TInmemClass::operator=(const ICIMClass& /*other*/) {
    return *this;
}

TInmemClass& TInmemClass::operator=(const TInmemClass& /*other*/) {
    return *this;
}

bool TInmemClass::Reserved32(TContext /*context*/) const {
    ThrowUnsupported();
}

void TInmemClass::Reserved33(TContext /*context*/) {
    ThrowUnsupported();
}

void TInmemClass::AddSubclass(boost::shared_ptr<ICIMClass> subclass, TContext /*context*/) {
    subclasses_[subclass->GetName({})] = subclass;
}

void TInmemClass::Reserved35(boost::shared_ptr<ICIMClass> /*subclass*/, TContext /*context*/) {
    ThrowUnsupported();
}

void TInmemClass::AddInstance(boost::shared_ptr<ICIMInstance> instance, TContext context) {
    instances_.emplace(instance->GetReference(context).GetPath(), instance);
}

void TInmemClass::RemoveInstance(boost::shared_ptr<ICIMInstance> instance, TContext context) {
    instances_.erase(instance->GetReference(context).GetPath());
}

void TInmemClass::Reserved38(boost::shared_ptr<ICIMInstance> /*instance*/, TContext /*context*/) {
    ThrowUnsupported();
}

void TInmemClass::Reserved39(boost::shared_ptr<ICIMInstance> /*instance*/, TContext /*context*/) {
    ThrowUnsupported();
}

void TInmemClass::AddPropertyDecl(boost::shared_ptr<ICIMPropertyDecl> declaration, TContext context) {
    const std::string& name = declaration->GetName({});
    if (declaration->GetValue({}).IsReference() && !IsAssociation(context)) {
        throw TVSKException(eVSKReferenceNotAllowed);
    }
    if (properties_.count(name) != 0) {
        throw TVSKException(eVSKAlreadyExists);
    }
    const boost::shared_ptr<ICIMPropertyDecl> inherited = FindInherited(superclass_, name);
    if (inherited && inherited->GetType({}) != declaration->GetType({})) {
        throw TVSKException(eVSKTypeMismatch);
    }
    properties_.emplace(name, declaration);
}

void TInmemClass::Reserved41(boost::shared_ptr<ICIMPropertyDecl> /*declaration*/, TContext /*context*/) {
    ThrowUnsupported();
}

void TInmemClass::Reserved42(boost::shared_ptr<ICIMMethodDecl> /*declaration*/, TContext /*context*/) {
    ThrowUnsupported();
}

void TInmemClass::Reserved43(boost::shared_ptr<ICIMMethodDecl> /*declaration*/, TContext /*context*/) {
    ThrowUnsupported();
}

void TInmemClass::InvokeMethod(TCIMValue& /*result*/, const TCIMReference& /*object*/,
                               const std::string& /*method*/, const TContext& /*inputs*/,
                               TContext& /*outputs*/, TContext /*context*/) {
    ThrowUnsupported();
}

boost::shared_ptr<ICIMQualifier> TInmemClass::FindQualifier(const std::string& /*name*/, bool& /*found*/,
                                                            TContext /*context*/) const {
    throw TVSKException(eVSKNotOffered);
}

boost::shared_ptr<ICIMQualifier> TInmemClass::GetQualifier(const std::string& name, TContext context) const {
    bool found = false;
    return TInmemElement::FindQualifier(name, found, context);
}

void TInmemClass::AddMethodDecl(const boost::shared_ptr<ICIMMethodDecl>& declaration) {
    if (!methods_.emplace(declaration->GetName({}), declaration).second) {
        throw TVSKException(eVSKAlreadyExists);
    }
}

void TInmemClass::ClearInstances() {
    instances_.clear();
}

boost::shared_ptr<ICIMNamespace> TInmemClass::OwnNamespace() const {
    return namespace_.lock();
}

boost::shared_ptr<ICIMNamedElement> TInmemClass::OwnElement() {
    return shared_from_this();
}

}  // namespace NQELVSK20
