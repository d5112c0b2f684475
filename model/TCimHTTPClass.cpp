#include "model/TCimHTTPClass.h"

#include <Pegasus/Client/CIMClient.h>

#include <algorithm>
#include <boost/pointer_cast.hpp>
#include <utility>

#include "cimhttp/PegClient.h"
#include "connection/client/Waiting.h"
#include "model/ClassNamespace.h"
#include "model/MethodCall.h"
#include "model/RemoteClassReader.h"
#include "model/RemoteInstanceReader.h"
#include "model/TCimHTTPMethodDecl.h"
#include "model/TCimHTTPPropertyDecl.h"
#include "provider/contract/HostCodes.h"
#include "provider/contract/HostReport.h"
#include "provider/contract/PegText.h"
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

// Walks a copy: the callback may change the class.
template <class TMap, class TCallback>
void EnumerateEntries(TMap entries, const TCallback& callback) {
    CallUntilFalse(entries, callback);
}

}  // namespace

// Life

TCimHTTPClass::TCimHTTPClass(boost::shared_ptr<ICIMNamespace> nameSpace, unsigned int timeout,
                             std::string name, boost::shared_ptr<TCimHTTPClass>)
    : namespace_(nameSpace), name_(std::move(name)), timeout_(timeout) {}

boost::shared_ptr<ClassNamespace> TCimHTTPClass::OwnNamespace(const char* operation) const {
    auto nameSpace = ClassNamespace::Behind(namespace_.lock());
    PointerIsSet(nameSpace != nullptr, std::string("TCimHTTPClass::") + operation + " " + name_);
    return nameSpace;
}

void TCimHTTPClass::Initialize() {
    if (superclass_.lock()) {
        return;
    }
    const auto nameSpace = OwnNamespace("Initialize");
    if (!nameSpace) {
        return;
    }
    const auto root = nameSpace->RootClass();
    if (root.get() != this) {
        superclass_ = root;
    }
    if (IsRoot() || (!nameSpace->ServesHypervisor() && IsCopiedFromUnion(*nameSpace))) {
        return;
    }
    std::string remoteName;
    const bool isReachable = nameSpace->GetRemoteName(remoteName);
    const std::vector<RemoteNode> nodes = nameSpace->RemoteNodes();
    if (!nodes.empty() && PointerIsSet(isReachable, "TCimHTTPClass::Initialize " + name_)) {
        RemoteClassReader(nameSpace, shared_from_this(), members_).ReadFromNodes(remoteName);
    }
    members_.InsertProperty(kNodeIdKey, AllocateNodeId());
}

bool TCimHTTPClass::IsCopiedFromUnion(const ClassNamespace& nameSpace) const {
    const std::string where = "TCimHTTPClass::Initialize " + name_;
    try {
        return nameSpace.IsCopiedFromUnion(name_, where);
    } catch (...) {
        LogTrace(where + " Catch an exception while trying to get this class in union namespace");
        return false;
    }
}

boost::shared_ptr<ICIMPropertyDecl> TCimHTTPClass::AllocateNodeId() {
    // A string; empty until an enumeration tells which node an instance came from.
    return AllocatePropertyDecl(kNodeIdName, TCIMValue(""), TContext());
}

void TCimHTTPClass::DeclareNodeId() {
    AddPropertyDecl(AllocateNodeId(), TContext());
}

void TCimHTTPClass::Commit(TContext context) {
    const auto nameSpace = OwnNamespace("Commit");
    if (!nameSpace) {
        return;
    }
    const auto replaced = nameSpace->Enter(shared_from_this());
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

// Members

void TCimHTTPClass::AddQualifier(boost::shared_ptr<ICIMQualifier> qualifier, TContext) {
    qualifiers_.Add(std::move(qualifier));
}

void TCimHTTPClass::AddPropertyDecl(boost::shared_ptr<ICIMPropertyDecl> declaration, TContext) {
    if (PointerIsSet(declaration != nullptr, "TCimHTTPClass::AddPropertyDecl " + name_)) {
        members_.AddProperty(*this, declaration);
    }
}

void TCimHTTPClass::AddMethodDecl(boost::shared_ptr<TCimHTTPMethodDecl> declaration) {
    if (PointerIsSet(declaration != nullptr, "TCimHTTPClass::AddMethodDecl " + name_)) {
        members_.AddMethod(*this, declaration);
    }
}

bool TCimHTTPClass::HasTrueQualifier(const std::string& name) const {
    const auto qualifier = qualifiers_.Find(name);
    return qualifier && IsTrue(qualifier->GetValue(TContext()));
}

// The two branches ask different questions: while connected, whether the name stands for the root class
// itself; else whether the class hangs below it. Kept, hosts rely on both.
bool TCimHTTPClass::IsTopLevel(TContext) const {
    const auto nameSpace = OwnNamespace("IsTopLevel");
    if (!nameSpace) {
        return false;
    }
    const auto root = nameSpace->RootClass();
    if (!root) {
        return false;  // the namespace has not been initialised
    }
    return (nameSpace->IsConnected() ? nameSpace->FindClass(name_) : superclass_.lock()) == root;
}

boost::shared_ptr<ICIMClass> TCimHTTPClass::GetSuperClass(TContext) const {
    const auto nameSpace = OwnNamespace("GetSuperClass");
    if (!nameSpace || IsRoot() || !nameSpace->IsConnected()) {
        return {};
    }
    PegClient* const client = nameSpace->ClientToAsk();
    std::string remoteName;
    const bool isReachable = nameSpace->GetRemoteName(remoteName) && client != nullptr;
    if (!PointerIsSet(isReachable, "TCimHTTPClass::GetSuperClass " + name_)) {
        return {};
    }
    const Pegasus::CIMClass definition = client->GetClass(remoteName, name_, kDefinitionTimeoutMs, true, true,
                                                          false, Pegasus::CIMPropertyList());
    if (definition.isUninitialized()) {
        return superclass_.lock();
    }
    return nameSpace->FindClass(ToText(definition.getSuperClassName()));
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

// Names of classes are compared to the letter, here and by == and <: kept, hosts rely on it. Those of their
// members are not.
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
    const ClassMembers::Properties properties =
        members_.AllProperties();  // looking a class up may run the host's code
    for (const auto& [key, declaration] : properties) {
        const std::string name = ReferencedClassName(key, *declaration);
        if (name.empty() || !isWanted(name)) {
            continue;
        }
        const auto referenced = nameSpace->FindClass(name);
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
    return members_.ReferencedClass(key);
}

void TCimHTTPClass::EnumerateKeyPropertyNames(const NameCallback& callback, TContext context) const {
    EnumerateEntries(members_.AllProperties(), [&](const boost::shared_ptr<ICIMPropertyDecl>& declaration) {
        return !IsKey(*declaration) || callback(declaration->GetName(context));
    });
}

boost::shared_ptr<ICIMPropertyDecl> TCimHTTPClass::GetPropertyDecl(const std::string& name, TContext) const {
    if (auto declaration = members_.FindProperty(name)) {
        return declaration;
    }
    if (name == "DateTimeOfCollection") {  // the host asks every class for it, and copes without
        return {};
    }
    Refuse(kStatusNotFound);
}

TCIMValue::TCIMType TCimHTTPClass::DeclaredType(const std::string& property) const {
    if (const auto declaration = members_.FindProperty(property)) {
        return declaration->GetType(TContext());
    }
    const auto superclass = KnownSuperclass();
    return superclass ? superclass->DeclaredType(property) : TCIMValue::TCIMType(kTypeUnknown);
}

void TCimHTTPClass::EnumeratePropertyDecls(const PropertyDeclCallback& callback, TContext) const {
    EnumerateEntries(members_.AllProperties(), callback);
}

boost::shared_ptr<ICIMNamedElement> TCimHTTPClass::GetMemberEntry(const std::string& name, TContext) const {
    const auto entry = memberEntries_.find(NormalizeName(name));
    if (entry == memberEntries_.end()) {
        Refuse(kStatusNotFound);
    }
    return entry->second;
}

void TCimHTTPClass::EnumerateMemberEntries(const MemberCallback& callback, TContext) const {
    for (const auto& entry : memberEntries_) {
        callback(entry.second);  // every entry, whatever the callback says
    }
}

boost::shared_ptr<ICIMMethodDecl> TCimHTTPClass::GetMethodDecl(const std::string& name, TContext) const {
    return members_.FindMethod(name);
}

void TCimHTTPClass::EnumerateMethodDecls(const MethodDeclCallback& callback, TContext) const {
    EnumerateEntries(members_.AllMethods(), callback);
}

// Members of a class find their qualifiers by this operation; a class itself refuses it and answers
// GetQualifier: kept, hosts rely on it.
boost::shared_ptr<ICIMQualifier> TCimHTTPClass::FindQualifier(const std::string&, bool&, TContext) const {
    Refuse(kStatusNotOffered);
}

boost::shared_ptr<ICIMQualifier> TCimHTTPClass::GetQualifier(const std::string& name, TContext) const {
    return qualifiers_.Find(name);
}

void TCimHTTPClass::EnumerateQualifiers(const QualifierCallback& callback, TContext) const {
    qualifiers_.Enumerate(callback);
}

// The class tree

void TCimHTTPClass::AddSubclass(boost::shared_ptr<ICIMClass> subclass, TContext) {
    if (!PointerIsSet(subclass != nullptr, "TCimHTTPClass::AddSubclass " + name_)) {
        return;
    }
    if (DerivesFrom(*subclass)) {
        Refuse(kStatusNotSupported);
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

// Instances and methods

bool TCimHTTPClass::IsMultiNode() const {
    const auto nameSpace = OwnNamespace("IsMultiNode");
    return nameSpace && nameSpace->RemoteNodes().size() > 1;
}

boost::shared_ptr<ICIMInstance> TCimHTTPClass::CreateInstance(TContext) {
    return boost::shared_ptr<ICIMInstance>(
        new TCimHTTPInstance(shared_from_this(), boost::shared_ptr<ICIMClass>()));
}

void TCimHTTPClass::EnumerateInstances(const InstanceCallback& callback, bool deep, TContext context) {
    CollectInstances(deep);
    // A copy: the callback may look instances up, which enumerates anew, or take some out.
    const auto collected = instances_.InPathOrder();
    ForgetUnlessKept();
    for (const auto& instance : collected) {
        if (!callback(instance)) {
            return;
        }
    }
    if (!deep) {
        return;
    }
    const auto subclasses = subclasses_;
    for (const auto& subclass : subclasses) {
        subclass->EnumerateInstances(callback, deep, context);
    }
}

void TCimHTTPClass::CollectInstances(bool deep) {
    instances_.Clear();
    const auto nameSpace = OwnNamespace("EnumerateInstances");
    if (!nameSpace || IsRoot()) {  // no server has a class "<root>"
        return;
    }
    const std::vector<RemoteNode> nodes = nameSpace->RemoteNodes();
    LogTrace("DEBUG: TCimHTTPClass:EI Total Clients " + std::to_string(nodes.size()) + "\n");
    for (const RemoteNode& node : nodes) {
        CollectFrom(node, nameSpace, deep);
    }
}

void TCimHTTPClass::CollectFrom(const RemoteNode& node, const boost::shared_ptr<ClassNamespace>& nameSpace,
                                bool deep) {
    std::string remoteName;
    if (!PointerIsSet(nameSpace->GetRemoteName(remoteName), "TCimHTTPClass::EnumerateInstances " + name_)) {
        return;
    }
    Pegasus::Array<Pegasus::CIMInstance> received = node.client.EnumerateInstances(
        remoteName, name_, timeout_, deep, true, false, false, Pegasus::CIMPropertyList());
    LogTrace("DEBUG: TCimHTTPClass:EnumerateInstances pegclient " + std::to_string(node.index) +
             " get instance of " + name_ + "\n" + name_ + " instance size " +
             std::to_string(received.size()) + "\n");
    RemoteInstanceReader reader(nameSpace, shared_from_this(), node);
    for (Pegasus::Uint32 i = 0; i < received.size(); ++i) {
        if (const auto instance = reader.Read(received[i])) {
            instances_.Insert(instance->GetReference(TContext()).GetPath(), instance);
        }
        received[i] = Pegasus::CIMInstance();  // its memory is the next one's
    }
}

// Instances hold their class: those of a class that left its namespace would hold it for good.
void TCimHTTPClass::ForgetUnlessKept() {
    if (!isInNamespace_) {
        ForgetInstances();
    }
}

void TCimHTTPClass::AddInstance(boost::shared_ptr<ICIMInstance> instance, TContext context) {
    if (PointerIsSet(instance != nullptr, "TCimHTTPClass::AddInstance " + name_)) {
        instances_.Insert(instance->GetReference(std::move(context)).GetPath(), instance);
        ForgetUnlessKept();
    }
}

void TCimHTTPClass::RemoveInstance(boost::shared_ptr<ICIMInstance> instance, TContext context) {
    if (PointerIsSet(instance != nullptr, "TCimHTTPClass::RemoveInstance " + name_)) {
        instances_.Erase(instance->GetReference(std::move(context)).GetPath());
    }
}

boost::shared_ptr<ICIMInstance> TCimHTTPClass::FindInstance(const TCIMReference& reference, TContext) {
    const std::string& path = reference.GetPath();
    if (auto collected = instances_.Find(path)) {
        return collected;
    }
    CollectInstances(false);
    auto found = instances_.Find(path);
    ForgetUnlessKept();
    return found;
}

void TCimHTTPClass::InvokeMethod(TCIMValue& result, const TCIMReference& object, const std::string& method,
                                 const TContext& inputs, TContext& outputs, TContext) {
    const auto nameSpace = OwnNamespace("InvokeMethod");
    PegClient* const client = nameSpace ? nameSpace->FirstClient() : nullptr;
    if (!PointerIsSet(client != nullptr, "TCimHTTPClass::InvokeMethod " + name_)) {
        result = TCIMValue();
        return;
    }
    // Methods go to the namespace by its own name, not by the name that `Init` may have been given for it.
    result = CallMethod({*client, nameSpace->OwnName(), object, timeout_}, method, inputs, outputs,
                        shared_from_this());
}

// Slots without a meaning of their own

void TCimHTTPClass::Reserved4(TContext) {
    Refuse(kStatusNotSupported);
}

void TCimHTTPClass::Reserved5(TContext) {
    Refuse(kStatusNotSupported);
}

void TCimHTTPClass::Reserved21(const std::string&, TContext) {
    Refuse(kStatusNotSupported);
}

}  // namespace NQELVSK20
