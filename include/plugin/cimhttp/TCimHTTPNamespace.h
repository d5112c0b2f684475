#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "cimhttp/ClassNamespaceAccess.h"
#include "cimhttp/Export.h"
#include "vskcore/ICIMNamespace.h"

namespace Pegasus {
class CIMName;
class CIMNamespaceName;
}  // namespace Pegasus

namespace NQELVSK20 {

class ClientObserver;
class PegClient;
class TCimHTTPClass;
class TCimHTTPQualifierDecl;
struct Credentials;

/// A remote CIM namespace, reached on one or several management-controller nodes of the machine.
///
/// Life: constructed by the provider, `Initialize`d, then `Init` and one of the connect operations by the
/// host. Classes are fetched on demand and stay cached as long as the namespace lives; classes and their
/// members refer back to it weakly. Must be owned by a boost::shared_ptr.
///
/// Not thread-safe: one thread at a time. Remote failures are logged and show as empty results.
class CIMHTTP_EXPORT TCimHTTPNamespace : public ICIMNamespace,
                                         public boost::enable_shared_from_this<TCimHTTPNamespace>,
                                         public ClassNamespaceAccess {
public:
    /// One map per node, in node order, each with one entry: the node key and the node's client. The clients
    /// belong to the namespace.
    using NodeClients = std::vector<std::map<std::string, PegClient*>>;

    /// `replaceDuplicates` decides what a second class or qualifier declaration of a name does: replace the
    /// first, or be refused. `name` is the remote namespace path, e.g. "root/cimv2".
    TCimHTTPNamespace(bool replaceDuplicates, std::string name);

    /// Copies share the remote objects with the original; the last one frees them.
    TCimHTTPNamespace(const TCimHTTPNamespace& other);

    /// Disconnects the nodes that the other does not share and lets go of the classes, as DeInit does.
    TCimHTTPNamespace& operator=(const TCimHTTPNamespace& other);

    /// Disconnects when connected. The client of node 0 stays allocated until the process ends.
    ///
    /// A host whose TCIMReference owns its namespace keeps the namespace alive through the instances that
    /// classes collected: such a host calls `disconnect` or `DeInit` before it lets go of the namespace.
    ~TCimHTTPNamespace() override;

    /// Reads the context and creates the root class and the declarations of the plug-in's own qualifiers.
    /// Throws status 32 when the context lacks "pluginNameQualDeclValue".
    void Initialize(TContext context);

    /// Creates the remote namespace name and node 0's client; the name is the namespace's own, or the one
    /// given. Throws status 42 when the remote library refuses. A second call, also after DeInit, appends one
    /// more node with node 0's client.
    void Init();
    void Init(std::string remoteName);

    /// Forgets the remote namespace name, every cached class and the class tree. The classes let go of the
    /// instances that they collected; one that the host still holds keeps none from then on.
    void DeInit();

    /// Connects one server: HTTPS on port 5989, else HTTP on port 5988. Does nothing when connected. A server
    /// that cannot be reached is logged; the namespace counts as connected all the same.
    void connect(std::string host, std::string user, std::string password);

    /// Connects one server per node. Throws status 42 when the lists differ in size or are empty.
    void connect(std::vector<std::string> hosts, std::vector<std::string> users,
                 std::vector<std::string> passwords);

    /// Connect over HTTP or HTTPS alone. `port` is kept, but the connection goes to the protocol's own port.
    ///
    /// That holds for this connection, not for those that follow it: a request whose connection breaks is
    /// repeated after PegClient::Reconnect, which falls back to plain HTTP when HTTPS fails. User and
    /// password then go over the network unencrypted although HTTPS was asked for, unless a ClientObserver
    /// forbids it.
    void ConnectViaHttp(std::string host, std::string user, std::string password, int port);
    void ConnectViaHttps(std::string host, std::string user, std::string password, int port);

    /// Disconnects every node, frees the clients of all but node 0, and lets go of the instances that the
    /// classes collected. Does nothing when not connected.
    void disconnect();

    /// Sets the time-out of every node's client, in milliseconds. Connecting sets its own.
    void setTimeout(unsigned int milliseconds);

    /// Who hears of the failures of the nodes' connections and requests, from now on; not owned, and must
    /// outlive the namespace or be replaced before it ends. Null: nobody.
    void ObserveClients(ClientObserver* observer);

    bool isConnected() const;

    /// The remote namespace name; null before Init. Owned by the namespace.
    Pegasus::CIMNamespaceName* getPegNSP() const;

    /// Node 0's client; null before Init. Valid until the process ends.
    PegClient* getPegClient() const;
    NodeClients getPegClientVec() const;
    std::string getfCimHTTPNamespaceName() const;
    bool getIsServeESXi() const;
    bool getIsServeESXi5() const;
    boost::shared_ptr<ICIMNamespace> GetUpcallNamespace() const;

    /// The key under which names are kept: `name` in lower case. An empty name is valid; one that is no CIM
    /// identifier (DSP0004) is logged and thrown as status 25.
    static std::string NormalizeName(const std::string& name);

    /// Replaces `names` with the direct subclasses of a class, or the top-level classes when its name is
    /// empty; the flag is ignored. True when there are any. Throws the remote library's exception for a
    /// malformed name.
    bool EnumerateClassNames(std::string nameSpace, std::string className, std::vector<std::string>& names,
                             bool ignored);

    /// Replaces `names` with the paths of a class's instances. True when there are any.
    bool EnumerateInstanceNames(std::string nameSpace, std::string className,
                                std::vector<std::string>& names);

    /// Reads every property of every instance of a class once, to show that it can be read. Always true.
    bool EnumerateInstances(const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMName& className);

    // ICIMNamespace
    boost::shared_ptr<INamespaceProvider> GetNamespaceProvider(TContext context) override;
    void SetUpcallNamespace(boost::shared_ptr<ICIMNamespace> upcall, TContext context) override;
    void AddUnderlyingNamespace(boost::shared_ptr<ICIMNamespace> underlying, TContext context) override;
    boost::shared_ptr<ICIMClass> AllocateClass(const std::string& name,
                                               boost::shared_ptr<ICIMClass> superclass,
                                               TContext context) override;

    /// Never throws: whatever goes wrong ends in an empty pointer and a line in the log.
    boost::shared_ptr<ICIMClass> GetClass(const std::string& name, TContext context) override;
    void EnumerateRootClasses(const ClassCallback& callback, TContext context) override;
    void EnumerateProviders(const ProviderCallback& callback, TContext context) override;
    boost::shared_ptr<ICIMQualifierDecl> AllocateQualifierDecl(const std::string& name,
                                                               const TCIMValue& defaultValue,
                                                               ICIMQualifierDecl::EScope scope,
                                                               ICIMQualifierDecl::EFlavor flavor,
                                                               TContext context) override;
    boost::shared_ptr<ICIMQualifierDecl> GetQualifierDecl(const std::string& name,
                                                          TContext context) const override;
    void EnumerateQualifierDecls(const QualifierDeclCallback& callback, TContext context) const override;
    boost::shared_ptr<ICIMSubscription> Subscribe(boost::shared_ptr<ICIMIndicationFilter> filter,
                                                  const InstanceCallback& callback,
                                                  TContext context) override;
    boost::shared_ptr<ICIMInstance> GetInstance(const TCIMReference& reference, TContext context) override;
    void DeleteInstance(const TCIMReference& reference, TContext context) override;
    void ModifyInstance(const TCIMReference& reference, TContext values, TContext context) override;
    void ExecuteQuery(const InstanceCallback& callback, std::string& query,
                      const InstanceCallback& secondCallback, TContext context) override;
    void ClearInstances() override;

    /// Copies another namespace of this kind; any other is left alone.
    ICIMNamespace& operator=(ICIMNamespace& other) override;

    // ClassNamespaceAccess
    ClassNamespace& ForClasses() override;

private:
    friend class TCimHTTPNamespaceTestAccess;  // tests look at saved credentials and node-wise connects

    struct Members;
    class Impl;

    /// Throws when the remote library or the host refuses to make a remote object: logged, status 42.
    void CreateRemoteName(const std::string& remoteName);
    void CreateFirstNode();
    void DeclarePluginQualifier(const std::string& name, const std::string& defaultValue);

    void connect(int nodeIndex, std::string host, std::string user, std::string password);
    void ConnectViaHttp(int nodeIndex, std::string host, std::string user, std::string password, int port);
    void ConnectViaHttps(int nodeIndex, std::string host, std::string user, std::string password, int port);
    void SaveConnectAuthInfo(std::string host, std::string user, std::string password, int port);
    void SaveConnectAuthInfo(std::vector<std::string> hosts, std::vector<std::string> users,
                             std::vector<std::string> passwords);
    const Credentials& SavedCredentials() const;
    bool IsMultiNode() const;
    void CheckIsESXi5();
    void AddClass(boost::shared_ptr<TCimHTTPClass> cimClass);
    void RemoveClass(boost::shared_ptr<TCimHTTPClass> cimClass);
    void AddQualifierDecl(boost::shared_ptr<TCimHTTPQualifierDecl> declaration);

    std::unique_ptr<Impl> impl_;  // all there is, so that a new member changes no host
};

}  // namespace NQELVSK20
