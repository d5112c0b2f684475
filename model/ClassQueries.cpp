// What a class tells about itself, its members and its place in the class tree.

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMPropertyList.h>

#include <boost/pointer_cast.hpp>

#include "connection/Log.h"
#include "connection/PegClient.h"
#include "connection/PegText.h"
#include "connection/Precondition.h"
#include "connection/Refuse.h"
#include "connection/TCimHTTPNamespace.h"
#include "model/DefinitionTimeout.h"
#include "model/NameOrder.h"
#include "model/TCimHTTPClass.h"
#include "namespace/TNamespaceMembers.h"
#include "vskcore/ICIMQualifier.h"
#include "vskcore/TVSKException.h"

namespace NQELVSK20 {

namespace {

bool IsTrue(const TCIMValue& value) {
    return !value.IsNull() && value.operator bool();
}

bool IsKey(const ICIMPropertyDecl& declaration) {
    try {
        const auto qualifier = declaration.GetQualifier("KEY", TContext());
        return qualifier && IsTrue(qualifier->GetValue(TContext()));
    } catch (const TVSKException&) {
        return false;
    }
}

// Calls back with every entry in key order until false. Walks a copy: the callback may change the class.
template <class TMap, class TCallback>
void EnumerateEntries(const TMap& map, const TCallback& callback) {
    const TMap entries = map;  // NOLINT(performance-unnecessary-copy-initialization)
    for (const auto& entry : entries) {
        if (!callback(entry.second)) {
            return;
        }
    }
}

PegClient* ClientToAsk(const TCimHTTPNamespace& nameSpace) {
    const TCimHTTPNamespace::NodeClients nodes = nameSpace.getPegClientVec();
    return nodes.size() > 1 ? nodes.front().begin()->second : nameSpace.getPegClient();
}

}  // namespace

bool TCimHTTPClass::IsAssociation(TContext) const {
    return HasTrueQualifier("ASSOCIATION");
}

bool TCimHTTPClass::IsAbstract(TContext) const {
    return HasTrueQualifier("ABSTRACT");
}

bool TCimHTTPClass::HasTrueQualifier(const std::string& name) const {
    const auto qualifier = qualifiers_.Find(name);
    return qualifier && IsTrue(qualifier->GetValue(TContext()));
}

// The two branches ask different questions on purpose: a connected host wants to know whether the name stands
// for the root class itself, one that is not connected whether the class hangs below it.
bool TCimHTTPClass::IsTopLevel(TContext) const {
    const auto nameSpace = OwnNamespace("IsTopLevel");
    if (!nameSpace) {
        return false;
    }
    const auto root = TNamespaceMembers::RootClass(*nameSpace);
    if (!root) {
        return false;  // the namespace has not been initialised
    }
    return (nameSpace->isConnected() ? nameSpace->GetClass(name_, TContext()) : superclass_.lock()) == root;
}

boost::shared_ptr<ICIMClass> TCimHTTPClass::GetSuperClass(TContext) const {
    const auto nameSpace = OwnNamespace("GetSuperClass");
    if (!nameSpace || IsRoot() || !nameSpace->isConnected()) {
        return {};
    }
    PegClient* const client = ClientToAsk(*nameSpace);
    const auto* const remoteName = nameSpace->getPegNSP();
    if (!PointerIsSet(client != nullptr && remoteName != nullptr, "TCimHTTPClass::GetSuperClass " + name_)) {
        return {};
    }
    const Pegasus::CIMClass definition = client->GetClass(ToText(*remoteName), name_, kDefinitionTimeoutMs,
                                                          true, true, false, Pegasus::CIMPropertyList());
    if (definition.isUninitialized()) {
        return superclass_.lock();
    }
    return nameSpace->GetClass(ToText(definition.getSuperClassName()), TContext());
}

void TCimHTTPClass::EnumerateSubclasses(const ClassCallback& callback, bool deep, TContext context) const {
    const auto subclasses = subclasses_;  // the callback may attach more
    for (const auto& subclass : subclasses) {
        try {
            if (!callback(subclass)) {
                return;
            }
            if (deep) {
                subclass->EnumerateSubclasses(callback, deep, context);
            }
        } catch (...) {
            // What one subclass's callback throws does not keep the others from being visited.
        }
    }
}

bool TCimHTTPClass::IsSubclassOf(boost::shared_ptr<ICIMClass> other, TContext context) const {
    if (!PointerIsSet(other != nullptr, "TCimHTTPClass::IsSubclassOf " + name_)) {
        return false;
    }
    if (name_ == other->GetName(context)) {
        return true;
    }
    const auto superclass = boost::dynamic_pointer_cast<TCimHTTPClass>(superclass_.lock());
    return superclass && !superclass->IsRoot() && superclass->IsSubclassOf(other, context);
}

void TCimHTTPClass::EnumerateReferencedClasses(const ClassCallback& callback, TContext) const {
    WalkReferencedClasses([](const std::string&) { return true; }, callback);
}

void TCimHTTPClass::EnumerateReferencedClassesByName(const std::string& className,
                                                     const ClassCallback& callback, TContext) const {
    WalkReferencedClasses([&](const std::string& name) { return EqualByName(name, className); }, callback);
}

void TCimHTTPClass::WalkReferencedClasses(const NameCallback& isWanted, const ClassCallback& callback) const {
    const auto nameSpace = OwnNamespace("EnumerateReferencedClasses");
    if (!nameSpace) {
        return;
    }
    const PropertyMap properties = properties_;  // looking a class up may run the host's code
    for (const auto& [key, declaration] : properties) {
        const std::string name = ReferencedClassName(key, *declaration);
        if (name.empty() || !isWanted(name)) {
            continue;
        }
        const auto referenced = nameSpace->GetClass(name, TContext());
        if (referenced && !callback(referenced)) {
            return;
        }
    }
}

// The class that a property's default value refers to, else the one that the remote definition names.
std::string TCimHTTPClass::ReferencedClassName(const std::string& key,
                                               const ICIMPropertyDecl& declaration) const {
    const TCIMValue& value = declaration.GetValue(TContext());
    if (!value.IsReference()) {
        return {};
    }
    if (const auto referenced = value.GetReferencedClass()) {
        return referenced->GetName(TContext());
    }
    const auto declared = referencedClassNames_.find(key);
    return declared == referencedClassNames_.end() ? std::string() : declared->second;
}

void TCimHTTPClass::EnumerateKeyPropertyNames(const NameCallback& callback, TContext context) const {
    EnumerateEntries(properties_, [&](const boost::shared_ptr<ICIMPropertyDecl>& declaration) {
        return !IsKey(*declaration) || callback(declaration->GetName(context));
    });
}

boost::shared_ptr<ICIMPropertyDecl> TCimHTTPClass::GetPropertyDecl(const std::string& name, TContext) const {
    const auto entry = properties_.find(TCimHTTPNamespace::NormalizeName(name));
    if (entry != properties_.end()) {
        return entry->second;
    }
    if (name == "DateTimeOfCollection") {  // the host asks every class for it, and copes without
        return {};
    }
    Refuse(eVSKNotFound);
}

TCIMValue::TCIMType TCimHTTPClass::DeclaredType(const std::string& property) const {
    const auto entry = properties_.find(TCimHTTPNamespace::NormalizeName(property));
    if (entry != properties_.end()) {
        return entry->second->GetType(TContext());
    }
    const auto superclass = KnownSuperclass();
    return superclass ? superclass->DeclaredType(property)
                      : TCIMValue::TCIMType(TCIMValue::TCIMType::eUnknown);
}

void TCimHTTPClass::EnumeratePropertyDecls(const PropertyDeclCallback& callback, TContext) const {
    EnumerateEntries(properties_, callback);
}

boost::shared_ptr<ICIMNamedElement> TCimHTTPClass::GetMemberEntry(const std::string& name, TContext) const {
    const auto entry = memberEntries_.find(TCimHTTPNamespace::NormalizeName(name));
    if (entry == memberEntries_.end()) {
        Refuse(eVSKNotFound);
    }
    return entry->second;
}

void TCimHTTPClass::EnumerateMemberEntries(const MemberCallback& callback, TContext) const {
    for (const auto& entry : memberEntries_) {
        callback(entry.second);  // every entry, whatever the callback says
    }
}

boost::shared_ptr<ICIMMethodDecl> TCimHTTPClass::GetMethodDecl(const std::string& name, TContext) const {
    const auto entry = methods_.find(TCimHTTPNamespace::NormalizeName(name));
    return entry == methods_.end() ? boost::shared_ptr<ICIMMethodDecl>() : entry->second;
}

void TCimHTTPClass::EnumerateMethodDecls(const MethodDeclCallback& callback, TContext) const {
    EnumerateEntries(methods_, callback);
}

boost::shared_ptr<ICIMQualifier> TCimHTTPClass::FindQualifier(const std::string&, bool&, TContext) const {
    Refuse(eVSKNotOffered);
}

boost::shared_ptr<ICIMQualifier> TCimHTTPClass::GetQualifier(const std::string& name, TContext) const {
    return qualifiers_.Find(name);
}

void TCimHTTPClass::EnumerateQualifiers(const QualifierCallback& callback, TContext) const {
    qualifiers_.Enumerate(callback);
}

}  // namespace NQELVSK20
