#pragma once

#include <Pegasus/Client/CIMClient.h>

#include <boost/function.hpp>
#include <memory>
#include <string>

namespace NQELVSK20 {

/// Where a server is and how it is spoken to.
struct ServerAddress {
    bool isEncrypted = false;  ///< Over TLS; the server's certificate is not checked.
    std::string host;
    int port = 0;
    std::string user;
    std::string password;
};

/// What a PegClient needs of the remote library's client. Each operation is the library's of that name, and
/// throws its exceptions; tests replace them.
class ServerLink {
public:
    using Name = Pegasus::CIMName;
    using Namespace = Pegasus::CIMNamespaceName;
    using Path = Pegasus::CIMObjectPath;
    using Properties = Pegasus::CIMPropertyList;
    using Parameters = Pegasus::Array<Pegasus::CIMParamValue>;

    ServerLink() = default;
    ServerLink(const ServerLink&) = delete;
    ServerLink& operator=(const ServerLink&) = delete;
    virtual ~ServerLink() = default;

    virtual void Connect(const ServerAddress& to);
    virtual void Disconnect() { client_.disconnect(); }

    /// How long the library waits from now on, in milliseconds.
    virtual void SetTimeout(unsigned int milliseconds) { client_.setTimeout(milliseconds); }

    /// The library's client itself; owned by the link.
    Pegasus::CIMClient& Library() { return client_; }

    /// What the library read past in the last answer, for people; empty when there was nothing.
    std::string Warning() const;

    virtual Pegasus::CIMClass GetClass(const Namespace& nameSpace, const Name& className, bool localOnly,
                                       bool includeQualifiers, bool includeClassOrigin,
                                       const Properties& propertyList);
    virtual Pegasus::Array<Pegasus::CIMInstance> EnumerateInstances(
        const Namespace& nameSpace, const Name& className, bool deepInheritance, bool localOnly,
        bool includeQualifiers, bool includeClassOrigin, const Properties& propertyList);
    virtual Pegasus::CIMValue InvokeMethod(const Namespace& nameSpace, const Path& path, const Name& method,
                                           const Parameters& inputs, Parameters& outputs);
    virtual Pegasus::Array<Name> EnumerateClassNames(const Namespace& nameSpace, const Name& className,
                                                     bool deepInheritance);
    virtual Pegasus::Array<Path> EnumerateInstanceNames(const Namespace& nameSpace, const Name& className);

private:
    Pegasus::CIMClient client_;
};

using ServerLinkMaker = boost::function<std::unique_ptr<ServerLink>()>;

/// A link of a client's own, over the remote library.
std::unique_ptr<ServerLink> MakeServerLink();

/// Who makes the links of clients from now on, process-wide; for tests alone. Empty: the remote library.
void ReplaceServerLinks(ServerLinkMaker maker);

}  // namespace NQELVSK20
