// The rules for what may become a member or subclass of a class.

#include <algorithm>
#include <boost/pointer_cast.hpp>
#include <utility>

#include "connection/Log.h"
#include "connection/Precondition.h"
#include "connection/Refuse.h"
#include "connection/TCimHTTPNamespace.h"
#include "model/NameOrder.h"
#include "model/TCimHTTPClass.h"
#include "model/TCimHTTPMethodDecl.h"
#include "vskcore/TVSKException.h"

namespace NQELVSK20 {

namespace {

// An override carries the qualifier. Its lookup throws when it is absent; a host's declaration may also give an
// empty pointer.
void RequireOverride(const ICIMPropertyDecl& declaration) {
    if (!declaration.GetQualifier("OVERRIDE", TContext())) {
        Refuse(eVSKNotFound);
    }
}

}  // namespace

void TCimHTTPClass::AddQualifier(boost::shared_ptr<ICIMQualifier> qualifier, TContext) {
    qualifiers_.Add(std::move(qualifier));
}

void TCimHTTPClass::AddPropertyDecl(boost::shared_ptr<ICIMPropertyDecl> declaration, TContext) {
    if (!PointerIsSet(declaration != nullptr, "TCimHTTPClass::AddPropertyDecl " + name_)) {
        return;
    }
    const std::string& propertyName = declaration->GetName(TContext());
    RefuseReferenceOutsideAssociation(*declaration);
    const std::string key = TCimHTTPNamespace::NormalizeName(propertyName);
    try {
        RequireOverride(*declaration);
        RemoveOverridden(key, *declaration);
    } catch (const TVSKException& error) {
        if (error.GetStatusCode() != eVSKNotFound) {
            Refuse(error.GetStatusCode(), kLogError,
                   "TCimHTTP: Attempt define property " + propertyName + " in class " + name_ +
                       "failed. Reason = " + error.what());
        }
        MakeRoomForNew(key, propertyName);
    }
    properties_.emplace(key, declaration);
}

void TCimHTTPClass::RefuseReferenceOutsideAssociation(const ICIMPropertyDecl& declaration) const {
    if (declaration.GetType(TContext()) == TCIMValue::TCIMType::eReference && !IsAssociation(TContext())) {
        Refuse(eVSKReferenceNotAllowed, kLogError,
               "TCimHTTP: Attempt to add reference property " + declaration.GetName(TContext()) +
                   " to non-association class " + name_);
    }
}

// The declaration that `declaration` overrides gives way once every check has passed.
void TCimHTTPClass::RemoveOverridden(const std::string& key, const ICIMPropertyDecl& declaration) {
    const std::string attempt = "TCimHTTP: Attempt to override property " + declaration.GetName(TContext()) +
                                " in class " + name_ + ": ";
    const auto stored = properties_.find(key);
    if (stored == properties_.end()) {
        Refuse(eVSKNotFound, kLogError, attempt + "property doesn't exist in base class");
    }
    if (stored->second->GetType(TContext()) != declaration.GetType(TContext())) {
        Refuse(eVSKTypeMismatch, kLogError, attempt + "different types");
    }
    if (stored->second->GetClass(TContext()).get() == this) {
        Refuse(eVSKAlreadyExists, kLogError, attempt + "original was defined in this class");
    }
    RemoveProperty(stored);
}

void TCimHTTPClass::MakeRoomForNew(const std::string& key, const std::string& propertyName) {
    const auto stored = properties_.find(key);
    if (stored == properties_.end()) {
        return;
    }
    // Port types are declared again by each layer of the host's schema; the last one is the one that counts.
    if (propertyName.find("PortType") == std::string::npos) {
        Refuse(
            eVSKAlreadyExists, kLogError,
            "TCimHTTP: Attempt to add property " + propertyName + " to class " + name_ + ": already exists");
    }
    RemoveProperty(stored);
}

void TCimHTTPClass::RemoveProperty(PropertyMap::const_iterator property) {
    referencedClassNames_.erase(property->first);
    properties_.erase(property);
}

void TCimHTTPClass::AddMethodDecl(boost::shared_ptr<TCimHTTPMethodDecl> declaration) {
    if (!PointerIsSet(declaration != nullptr, "TCimHTTPClass::AddMethodDecl " + name_)) {
        return;
    }
    const std::string& methodName = declaration->GetName(TContext());
    if (!methods_.emplace(TCimHTTPNamespace::NormalizeName(methodName), declaration).second) {
        Refuse(eVSKAlreadyExists, kLogError,
               "TCimHTTP: Attempt to add method " + methodName + " to class " + name_ + ": already exists");
    }
}

void TCimHTTPClass::AddSubclass(boost::shared_ptr<ICIMClass> subclass, TContext) {
    if (!PointerIsSet(subclass != nullptr, "TCimHTTPClass::AddSubclass " + name_)) {
        return;
    }
    if (DerivesFrom(*subclass)) {
        Refuse(eVSKNotSupported);
    }
    if (const auto remote = boost::dynamic_pointer_cast<TCimHTTPClass>(subclass)) {
        const auto former = remote->KnownSuperclass();
        if (former && former.get() != this) {
            former->DropSubclass(*remote);
        }
        remote->superclass_ = shared_from_this();
    }
    for (auto& known : subclasses_) {
        if (EqualByName(known->GetName(TContext()), subclass->GetName(TContext()))) {
            known = subclass;
            return;
        }
    }
    subclasses_.push_back(std::move(subclass));
}

bool TCimHTTPClass::DerivesFrom(const ICIMClass& other) const {
    const ICIMClass* current = this;
    boost::shared_ptr<ICIMClass> superclass;
    while (current != nullptr && current != &other) {
        const auto* const remote = dynamic_cast<const TCimHTTPClass*>(current);
        superclass = remote == nullptr ? boost::shared_ptr<ICIMClass>() : remote->superclass_.lock();
        current = superclass.get();
    }
    return current == &other;
}

boost::shared_ptr<TCimHTTPClass> TCimHTTPClass::KnownSuperclass() const {
    return boost::dynamic_pointer_cast<TCimHTTPClass>(superclass_.lock());
}

void TCimHTTPClass::SuggestSuperclass(const boost::shared_ptr<TCimHTTPClass>& superclass) {
    if (superclass && !superclass->DerivesFrom(*this)) {
        superclass_ = superclass;
    }
}

void TCimHTTPClass::DropSubclass(const ICIMClass& subclass) {
    const auto isSame = [&](const boost::shared_ptr<ICIMClass>& known) { return known.get() == &subclass; };
    subclasses_.erase(std::remove_if(subclasses_.begin(), subclasses_.end(), isSame), subclasses_.end());
}

void TCimHTTPClass::LeaveTree() {
    if (const auto superclass = KnownSuperclass()) {
        superclass->DropSubclass(*this);
    }
}

void TCimHTTPClass::TakeOverSubclasses(TCimHTTPClass& old) {
    const auto subclasses = old.subclasses_;  // each leaves it when it is attached here
    for (const auto& subclass : subclasses) {
        AddSubclass(subclass, TContext());
    }
}

}  // namespace NQELVSK20
