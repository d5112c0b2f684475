#include "model/ClassMembers.h"

#include "provider/contract/HostCodes.h"
#include "provider/contract/HostReport.h"
#include "vskcore/TVSKException.h"

namespace NQELVSK20 {

namespace {

// An override carries the qualifier. Its lookup throws when it is absent; a host's declaration may also give
// an empty pointer.
void RequireOverride(const ICIMPropertyDecl& declaration) {
    if (!declaration.GetQualifier("OVERRIDE", TContext())) {
        Refuse(kStatusNotFound);
    }
}

}  // namespace

void ClassMembers::AddProperty(const ICIMClass& owner,
                               const boost::shared_ptr<ICIMPropertyDecl>& declaration) {
    const std::string& name = declaration->GetName(TContext());
    const std::string& className = owner.GetName(TContext());
    if (declaration->GetType(TContext()) == kTypeReference && !owner.IsAssociation(TContext())) {
        Refuse(
            kStatusReferenceNotAllowed, kLogError,
            "TCimHTTP: Attempt to add reference property " + name + " to non-association class " + className);
    }
    const std::string key = NormalizeName(name);
    try {
        RequireOverride(*declaration);
        RemoveOverridden(owner, key, *declaration);
    } catch (const TVSKException& error) {
        // An override of nothing is refused with the same status as what is no override: both are new.
        if (error.GetStatusCode() != kStatusNotFound) {
            Refuse(error.GetStatusCode(), kLogError,
                   "TCimHTTP: Attempt define property " + name + " in class " + className +
                       "failed. Reason = " + error.what());
        }
        MakeRoomForNew(owner, key, name);
    }
    properties_.emplace(key, declaration);
}

// The declaration that `declaration` overrides gives way once every check has passed.
void ClassMembers::RemoveOverridden(const ICIMClass& owner, const std::string& key,
                                    const ICIMPropertyDecl& declaration) {
    const std::string attempt = "TCimHTTP: Attempt to override property " + declaration.GetName(TContext()) +
                                " in class " + owner.GetName(TContext()) + ": ";
    const auto stored = properties_.find(key);
    if (stored == properties_.end()) {
        Refuse(kStatusNotFound, kLogError, attempt + "property doesn't exist in base class");
    }
    if (stored->second->GetType(TContext()) != declaration.GetType(TContext())) {
        Refuse(kStatusTypeMismatch, kLogError, attempt + "different types");
    }
    if (stored->second->GetClass(TContext()).get() == &owner) {
        Refuse(kStatusAlreadyExists, kLogError, attempt + "original was defined in this class");
    }
    Remove(stored);
}

void ClassMembers::MakeRoomForNew(const ICIMClass& owner, const std::string& key,
                                  const std::string& propertyName) {
    const auto stored = properties_.find(key);
    if (stored == properties_.end()) {
        return;
    }
    // Port types are declared again by each layer of the host's schema; the last one is the one that counts.
    if (propertyName.find("PortType") == std::string::npos) {
        Refuse(kStatusAlreadyExists, kLogError,
               "TCimHTTP: Attempt to add property " + propertyName + " to class " +
                   owner.GetName(TContext()) + ": already exists");
    }
    Remove(stored);
}

void ClassMembers::Remove(Properties::const_iterator property) {
    referencedClasses_.erase(property->first);
    properties_.erase(property);
}

void ClassMembers::AddMethod(const ICIMClass& owner, const boost::shared_ptr<ICIMMethodDecl>& declaration) {
    const std::string& name = declaration->GetName(TContext());
    if (!methods_.emplace(NormalizeName(name), declaration).second) {
        Refuse(kStatusAlreadyExists, kLogError,
               "TCimHTTP: Attempt to add method " + name + " to class " + owner.GetName(TContext()) +
                   ": already exists");
    }
}

std::string ClassMembers::ReferencedClass(const std::string& key) const {
    const auto entry = referencedClasses_.find(key);
    return entry == referencedClasses_.end() ? std::string() : entry->second;
}

}  // namespace NQELVSK20
