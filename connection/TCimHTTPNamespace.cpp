#include "cimhttp/TCimHTTPNamespace.h"

#include <Pegasus/Common/CIMName.h>

#include <boost/pointer_cast.hpp>
#include <utility>

#include "cimhttp/PegClient.h"
#include "connection/client/Nodes.h"
#include "connection/client/Waiting.h"
#include "model/ClassNamespace.h"
#include "model/TCimHTTPClass.h"
#include "model/TCimHTTPQualifierDecl.h"
#include "namespace/ClassCache.h"
#include "namespace/ClassLookup.h"
#include "namespace/Queries.h"
#include "namespace/names/Names.h"
#include "provider/contract/HostCodes.h"
#include "provider/contract/HostReport.h"
#include "provider/contract/PegText.h"
#include "provider/contract/PluginProvider.h"
#include "vskcore/ICIMIndicationFilter.h"
#include "vskcore/ICIMSubscription.h"

namespace NQELVSK20 {

namespace {

constexpr const char* kPluginNameKey = "pluginNameQualDeclValue";

[[noreturn]] void RefuseRemoteObject(const char* what, const Pegasus::Exception& error) {
    Refuse(kStatusRemoteFailure, kLogTrace, what + ToText(error));
}

std::size_t IndexOf(int nodeIndex) {
    return static_cast<std::size_t>(nodeIndex);  // a negative one is beyond every node
}

}  // namespace

/// What a copy of a namespace takes over: the remote objects and classes behind it are shared.
struct TCimHTTPNamespace::Members {
    Members(bool replaceDuplicates, std::string name)
        : name_(std::move(name)), qualifiers_(replaceDuplicates), cache_(replaceDuplicates) {}

    boost::shared_ptr<Pegasus::CIMNamespaceName> remoteName_;
    Nodes nodes_;
    Credentials credentials_;
    boost::shared_ptr<ICIMNamespace> upcall_;
    std::string pluginName_;
    std::string name_;
    bool connected_ = false;
    bool multiNode_ = false;
    QualifierTable qualifiers_;
    ClassCache cache_;
};

/// What a namespace is made of, and what its classes see of it.
class TCimHTTPNamespace::Impl : public ClassNamespace, public Members {
public:
    Impl(TCimHTTPNamespace& self, const Members& members) : Members(members), self_(self) {}

    Impl& operator=(const Impl& other) {
        nodes_.DisconnectAllBut(other.nodes_);
        static_cast<Members&>(*this) = other;
        return *this;
    }

    std::vector<RemoteNode> RemoteNodes() const override { return nodes_.Connected(); }
    PegClient* FirstClient() const override { return nodes_.First(); }
    PegClient* ClientToAsk() const override {
        return nodes_.All().size() > 1 ? nodes_.Client(0) : nodes_.First();
    }
    bool IsConnected() const override { return connected_; }
    bool ServesHypervisor() const override { return nodes_.Detected().isEsxi; }
    const std::string& OwnName() const override { return name_; }
    bool GetRemoteName(std::string& name) const override;
    boost::shared_ptr<ICIMClass> FindClass(const std::string& name) override;
    boost::shared_ptr<ICIMClass> RootClass() const override { return cache_.Root(); }
    bool IsCopiedFromUnion(const std::string& className, const std::string& where) const override {
        return lookup_.IsCopiedFromUnion(className, where);
    }
    boost::shared_ptr<TCimHTTPClass> Enter(const boost::shared_ptr<TCimHTTPClass>& cimClass) override {
        return cache_.Add(cimClass);
    }
    boost::shared_ptr<ICIMQualifierDecl> FindQualifierDecl(const std::string& name) const override;
    void Enter(const boost::shared_ptr<TCimHTTPQualifierDecl>& declaration) override {
        qualifiers_.Add(declaration);
    }

    ClassLookup lookup_{{cache_, nodes_, remoteName_, upcall_, pluginName_}};

private:
    TCimHTTPNamespace& self_;
};

bool TCimHTTPNamespace::Impl::GetRemoteName(std::string& name) const {
    name = remoteName_ ? ToText(*remoteName_) : std::string();
    return remoteName_ != nullptr;
}

boost::shared_ptr<ICIMClass> TCimHTTPNamespace::Impl::FindClass(const std::string& name) {
    return static_cast<ICIMNamespace&>(self_).GetClass(name, TContext());
}

boost::shared_ptr<ICIMQualifierDecl> TCimHTTPNamespace::Impl::FindQualifierDecl(
    const std::string& name) const {
    return static_cast<const ICIMNamespace&>(self_).GetQualifierDecl(name, TContext());
}

// Life

TCimHTTPNamespace::TCimHTTPNamespace(bool replaceDuplicates, std::string name)
    : impl_(std::make_unique<Impl>(*this, Members(replaceDuplicates, std::move(name)))) {}

TCimHTTPNamespace::TCimHTTPNamespace(const TCimHTTPNamespace& other)
    : ICIMNamespace(),
      boost::enable_shared_from_this<TCimHTTPNamespace>(other),
      ClassNamespaceAccess(),
      impl_(std::make_unique<Impl>(*this, *other.impl_)) {}

TCimHTTPNamespace& TCimHTTPNamespace::operator=(const TCimHTTPNamespace& other) {
    if (this != &other) {
        *impl_ = *other.impl_;
    }
    return *this;
}

ICIMNamespace& TCimHTTPNamespace::operator=(ICIMNamespace& other) {
    if (const auto* same = dynamic_cast<const TCimHTTPNamespace*>(&other)) {
        *this = *same;
    }
    return *this;
}

TCimHTTPNamespace::~TCimHTTPNamespace() {
    disconnect();
    impl_->cache_.GiveUp();
    impl_->nodes_.Observe(nullptr);
}

ClassNamespace& TCimHTTPNamespace::ForClasses() {
    return *impl_;
}

void TCimHTTPNamespace::Initialize(TContext context) {
    const auto pluginName = context.find(kPluginNameKey);
    if (pluginName == context.end()) {
        Refuse(kStatusMissingContextValue, kLogError,
               "TCIMHTTPNamespace: 'pluginNameQualDeclValue' not passed via context");
    }
    impl_->pluginName_ = pluginName->second.operator std::string();
    impl_->cache_.SetRoot(boost::dynamic_pointer_cast<TCimHTTPClass>(
        AllocateClass(kRootClassName, boost::shared_ptr<ICIMClass>(), TContext())));
    DeclarePluginQualifier("PLUGINNAME", "CIMXML");
    DeclarePluginQualifier("PLUGINVERSION", "");
}

void TCimHTTPNamespace::DeclarePluginQualifier(const std::string& name, const std::string& defaultValue) {
    AddQualifierDecl(boost::dynamic_pointer_cast<TCimHTTPQualifierDecl>(
        AllocateQualifierDecl(name, TCIMValue(defaultValue), kScopeNone, kFlavorNone, TContext())));
}

void TCimHTTPNamespace::Init() {
    Init(impl_->name_);
}

void TCimHTTPNamespace::Init(std::string remoteName) {
    CreateRemoteName(remoteName);
    CreateFirstNode();
}

void TCimHTTPNamespace::CreateRemoteName(const std::string& remoteName) {
    if (impl_->remoteName_) {
        return;
    }
    try {
        impl_->remoteName_.reset(new Pegasus::CIMNamespaceName(FromText(remoteName)));
    } catch (const Pegasus::Exception& error) {
        RefuseRemoteObject("TCimHTTPNamespace:Pegasus NSP Creation Fail: ", error);
    }
}

void TCimHTTPNamespace::CreateFirstNode() {
    try {
        impl_->nodes_.AppendFirst();
    } catch (const Pegasus::Exception& error) {
        RefuseRemoteObject("TCimHTTPNamespace:Pegasus Client Creation Fail: ", error);
    }
}

void TCimHTTPNamespace::DeInit() {
    impl_->remoteName_.reset();
    impl_->cache_.Forget();
}

// Connections

void TCimHTTPNamespace::connect(std::string host, std::string user, std::string password) {
    LogTrace("Entering TCimHTTPNamespace::connect - Connect to single node cimom via http or https.");
    if (!impl_->connected_) {
        SaveConnectAuthInfo(host, user, password, kHttpPort);
        connect(0, host, user, password);
        // Before the flag here, after it in ConnectViaHttps: kept, hosts rely on it.
        CheckIsESXi5();
        impl_->connected_ = true;
    }
    LogTrace("Exiting TCimHTTPNamespace::connect - Connect to single node cimom via http or https.");
}

void TCimHTTPNamespace::connect(std::vector<std::string> hosts, std::vector<std::string> users,
                                std::vector<std::string> passwords) {
    LogTrace("Entering TCimHTTPNamespace::connect - Connect to multinode cimom via http or https");
    if (!impl_->connected_) {
        if (hosts.empty() || hosts.size() != users.size() || users.size() != passwords.size()) {
            Refuse(kStatusRemoteFailure, kLogTrace, "The input auth info is not correct!");
        }
        SaveConnectAuthInfo(hosts, users, passwords);
        if (hosts.size() > 1) {
            impl_->multiNode_ = true;
        }
        for (std::size_t i = 0; i < hosts.size(); ++i) {
            connect(static_cast<int>(i), hosts[i], users[i], passwords[i]);
        }
        // No detection of several nodes: kept, hosts rely on it. It runs when a class is first missed.
        impl_->connected_ = true;
    }
    LogTrace("Exiting TCimHTTPNamespace::connect - Connect to multinode cimom via http or https");
}

void TCimHTTPNamespace::connect(int nodeIndex, std::string host, std::string user, std::string password) {
    LogTrace("Entering TCimHTTPNamespace::connect - Connect to cimom via http or https");
    impl_->nodes_.AppendIfMissing(IndexOf(nodeIndex));
    PegClient* const client = impl_->nodes_.Client(IndexOf(nodeIndex));
    if (client == nullptr) {
        return;
    }
    try {
        client->Connect(host, user, password);
    } catch (const Pegasus::Exception& error) {
        LogTrace("TCimHTTPNamespace::connect - Connect to cimom via http or https failed, error:" +
                 ToText(error));
    }
}

void TCimHTTPNamespace::ConnectViaHttp(std::string host, std::string user, std::string password, int port) {
    LogTrace("Entering TCimHTTPNamespace::ConnectViaHttp");
    if (!impl_->connected_) {
        SaveConnectAuthInfo(host, user, password, port);
        ConnectViaHttp(0, host, user, password, kHttpPort);
        impl_->connected_ = true;  // and no detection: kept, hosts rely on it
    }
    LogTrace("Exiting TCimHTTPNamespace::ConnectViaHttp");
}

void TCimHTTPNamespace::ConnectViaHttps(std::string host, std::string user, std::string password, int port) {
    LogTrace("Entering TCimHTTPNamespace::ConnectViaHttps");
    if (!impl_->connected_) {
        SaveConnectAuthInfo(host, user, password, port);
        ConnectViaHttps(0, host, user, password, kHttpsPort);
        impl_->connected_ = true;
        CheckIsESXi5();  // after the flag here, before it in connect: kept, hosts rely on it
    }
    LogTrace("Exiting TCimHTTPNamespace::ConnectViaHttps");
}

void TCimHTTPNamespace::ConnectViaHttp(int nodeIndex, std::string host, std::string user,
                                       std::string password, int port) {
    LogTrace("Entering TCimHTTPNamespace::ConnectViaHttp -With Node Num");
    if (PegClient* const client = impl_->nodes_.Client(IndexOf(nodeIndex))) {
        client->HTTPConnect(host, user, password, port);
    }
    LogTrace("Exiting TCimHTTPNamespace::ConnectViaHttp -With Node Num");
}

void TCimHTTPNamespace::ConnectViaHttps(int nodeIndex, std::string host, std::string user,
                                        std::string password, int port) {
    LogTrace("Entering TCimHTTPNamespace::ConnectViaHttps - With Node Num");
    if (PegClient* const client = impl_->nodes_.Client(IndexOf(nodeIndex))) {
        client->HTTPSConnect(host, user, password, port);
    }
    LogTrace("Exiting TCimHTTPNamespace::ConnectViaHttps - With Node Num");
}

void TCimHTTPNamespace::SaveConnectAuthInfo(std::string host, std::string user, std::string password,
                                            int port) {
    SaveConnectAuthInfo(std::vector<std::string>{std::move(host)}, {std::move(user)}, {std::move(password)});
    impl_->credentials_.port = static_cast<unsigned int>(port);
}

void TCimHTTPNamespace::SaveConnectAuthInfo(std::vector<std::string> hosts, std::vector<std::string> users,
                                            std::vector<std::string> passwords) {
    impl_->credentials_.hosts = std::move(hosts);
    impl_->credentials_.users = std::move(users);
    impl_->credentials_.passwords = std::move(passwords);
}

const Credentials& TCimHTTPNamespace::SavedCredentials() const {
    return impl_->credentials_;
}

bool TCimHTTPNamespace::IsMultiNode() const {
    return impl_->multiNode_;
}

void TCimHTTPNamespace::CheckIsESXi5() {
    impl_->nodes_.DetectHypervisor();
}

void TCimHTTPNamespace::setTimeout(unsigned int milliseconds) {
    impl_->nodes_.SetTimeout(milliseconds);
}

void TCimHTTPNamespace::disconnect() {
    if (impl_->connected_) {
        impl_->connected_ = false;
        impl_->nodes_.Disconnect();
        impl_->cache_.ForgetInstances();
    }
}

void TCimHTTPNamespace::ObserveClients(ClientObserver* observer) {
    impl_->nodes_.Observe(observer);
}

bool TCimHTTPNamespace::isConnected() const {
    return impl_->connected_;
}

Pegasus::CIMNamespaceName* TCimHTTPNamespace::getPegNSP() const {
    return impl_->remoteName_.get();
}

PegClient* TCimHTTPNamespace::getPegClient() const {
    return impl_->nodes_.First();
}

TCimHTTPNamespace::NodeClients TCimHTTPNamespace::getPegClientVec() const {
    return impl_->nodes_.All();
}

std::string TCimHTTPNamespace::getfCimHTTPNamespaceName() const {
    return impl_->name_;
}

bool TCimHTTPNamespace::getIsServeESXi() const {
    return impl_->nodes_.Detected().isEsxi;
}

bool TCimHTTPNamespace::getIsServeESXi5() const {
    return impl_->nodes_.Detected().isEsxi5;
}

// Classes and qualifier declarations

std::string TCimHTTPNamespace::NormalizeName(const std::string& name) {
    return NQELVSK20::NormalizeName(name);
}

boost::shared_ptr<ICIMClass> TCimHTTPNamespace::AllocateClass(const std::string& name,
                                                              boost::shared_ptr<ICIMClass> superclass,
                                                              TContext context) {
    const auto given = boost::dynamic_pointer_cast<TCimHTTPClass>(superclass);
    const boost::shared_ptr<TCimHTTPClass> cimClass(new TCimHTTPClass(
        shared_from_this(), RaisedTimeout(context, "EITimeout", kClassTimeoutMs), name, given));
    impl_->cache_.Remember(cimClass);
    cimClass->Initialize();
    cimClass->SuggestSuperclass(given);
    return cimClass;
}

boost::shared_ptr<ICIMClass> TCimHTTPNamespace::GetClass(const std::string& name, TContext context) {
    if (!impl_->connected_) {
        return {};
    }
    try {
        return impl_->lookup_.Find(shared_from_this(), name, context);
    } catch (...) {
        // The host asks for classes that may not exist, in names that may be none; it is told "no class".
        return {};
    }
}

void TCimHTTPNamespace::AddClass(boost::shared_ptr<TCimHTTPClass> cimClass) {
    impl_->cache_.Add(cimClass);
}

// Does nothing: kept, hosts rely on it. Classes stay cached for the life of the namespace.
void TCimHTTPNamespace::RemoveClass(boost::shared_ptr<TCimHTTPClass>) {}

void TCimHTTPNamespace::EnumerateRootClasses(const ClassCallback& callback, TContext context) {
    if (impl_->connected_) {
        impl_->cache_.Root()->EnumerateSubclasses(callback, true, context);
    }
}

boost::shared_ptr<ICIMQualifierDecl> TCimHTTPNamespace::AllocateQualifierDecl(
    const std::string& name, const TCIMValue& defaultValue, ICIMQualifierDecl::EScope scope,
    ICIMQualifierDecl::EFlavor flavor, TContext) {
    return boost::shared_ptr<ICIMQualifierDecl>(
        new TCimHTTPQualifierDecl(shared_from_this(), name, defaultValue, scope, flavor));
}

void TCimHTTPNamespace::AddQualifierDecl(boost::shared_ptr<TCimHTTPQualifierDecl> declaration) {
    impl_->qualifiers_.Add(declaration);
}

boost::shared_ptr<ICIMQualifierDecl> TCimHTTPNamespace::GetQualifierDecl(const std::string& name,
                                                                         TContext) const {
    return impl_->qualifiers_.Find(name);
}

void TCimHTTPNamespace::EnumerateQualifierDecls(const QualifierDeclCallback& callback, TContext) const {
    impl_->qualifiers_.Enumerate(callback);
}

// Questions to the server, instances, and the operations that are not offered

bool TCimHTTPNamespace::EnumerateClassNames(std::string nameSpace, std::string className,
                                            std::vector<std::string>& names, bool) {
    LogTrace("Entering TCimHTTPNamespace::EnumerateClassNames");
    names = QueryClassNames(getPegClient(), nameSpace, className);
    LogTrace("Exiting TCimHTTPNamespace::EnumerateClassNames");
    return !names.empty();
}

bool TCimHTTPNamespace::EnumerateInstanceNames(std::string nameSpace, std::string className,
                                               std::vector<std::string>& names) {
    LogTrace("Entering TCimHTTPNamespace::EnumerateInstanceNames");
    names = QueryInstanceNames(getPegClient(), nameSpace, className);
    LogTrace("Exiting TCimHTTPNamespace::EnumerateInstanceNames");
    return !names.empty();
}

bool TCimHTTPNamespace::EnumerateInstances(const Pegasus::CIMNamespaceName& nameSpace,
                                           const Pegasus::CIMName& className) {
    WalkInstances(getPegClient(), nameSpace, className);
    return true;
}

boost::shared_ptr<ICIMInstance> TCimHTTPNamespace::GetInstance(const TCIMReference& reference,
                                                               TContext context) {
    ICIMNamespace& self = *this;
    const auto cimClass =
        boost::dynamic_pointer_cast<TCimHTTPClass>(self.GetClass(reference.GetClassName(), TContext()));
    if (!PointerIsSet(cimClass != nullptr, "TCimHTTPNamespace::GetInstance " + reference.GetPath())) {
        return {};
    }
    return cimClass->FindInstance(reference, std::move(context));
}

boost::shared_ptr<INamespaceProvider> TCimHTTPNamespace::GetNamespaceProvider(TContext) {
    return PluginProvider();
}

void TCimHTTPNamespace::SetUpcallNamespace(boost::shared_ptr<ICIMNamespace> upcall, TContext) {
    impl_->upcall_ = std::move(upcall);
}

boost::shared_ptr<ICIMNamespace> TCimHTTPNamespace::GetUpcallNamespace() const {
    return impl_->upcall_;
}

// A namespace of this kind has no providers of its own and keeps no instances.
void TCimHTTPNamespace::EnumerateProviders(const ProviderCallback&, TContext) {}
void TCimHTTPNamespace::ClearInstances() {}

void TCimHTTPNamespace::AddUnderlyingNamespace(boost::shared_ptr<ICIMNamespace>, TContext) {
    Refuse(kStatusNotSupported);
}

boost::shared_ptr<ICIMSubscription> TCimHTTPNamespace::Subscribe(boost::shared_ptr<ICIMIndicationFilter>,
                                                                 const InstanceCallback&, TContext) {
    Refuse(kStatusNotOffered);
}

void TCimHTTPNamespace::DeleteInstance(const TCIMReference&, TContext) {
    Refuse(kStatusNotOffered);
}

void TCimHTTPNamespace::ModifyInstance(const TCIMReference&, TContext, TContext) {
    Refuse(kStatusNotOffered);
}

void TCimHTTPNamespace::ExecuteQuery(const InstanceCallback&, std::string&, const InstanceCallback&,
                                     TContext) {
    Refuse(kStatusNotOffered);
}

}  // namespace NQELVSK20
