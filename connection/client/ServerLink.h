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

/// What a PegClient needs of the remote library's client. Each operation does what the library's of that name
/// does, and throws its exceptions.
class ServerLink {
public:
    using Name = Pegasus::CIMName;
    using Namespace = Pegasus::CIMNamespaceName;
    using Path = Pegasus::CIMObjectPath;
    using Properties = Pegasus::CIMPropertyList;
    using Parameters = Pegasus::Array<Pegasus::CIMParamValue>;

    virtual ~ServerLink() = default;

    virtual void Connect(const ServerAddress& address) = 0;
    virtual void Disconnect() = 0;
    virtual void SetTimeout(unsigned int milliseconds) = 0;

    /// The library's client itself; owned by the link.
    virtual Pegasus::CIMClient& Library() = 0;

    virtual Pegasus::CIMClass GetClass(const Namespace& nameSpace, const Name& className, bool localOnly,
                                       bool includeQualifiers, bool includeClassOrigin,
                                       const Properties& propertyList) = 0;
    virtual Pegasus::Array<Pegasus::CIMInstance> EnumerateInstances(
        const Namespace& nameSpace, const Name& className, bool deepInheritance, bool localOnly,
        bool includeQualifiers, bool includeClassOrigin, const Properties& propertyList) = 0;
    virtual Pegasus::CIMValue InvokeMethod(const Namespace& nameSpace, const Path& path, const Name& method,
                                           const Parameters& inputs, Parameters& outputs) = 0;
    virtual Pegasus::Array<Name> EnumerateClassNames(const Namespace& nameSpace, const Name& className,
                                                     bool deepInheritance) = 0;
    virtual Pegasus::Array<Path> EnumerateInstanceNames(const Namespace& nameSpace,
                                                        const Name& className) = 0;
};

using ServerLinkMaker = boost::function<std::unique_ptr<ServerLink>()>;

/// A link of a client's own, over the remote library.
std::unique_ptr<ServerLink> MakeServerLink();

/// Who makes the links of clients from now on, process-wide; for tests alone. Empty: the remote library.
void ReplaceServerLinks(ServerLinkMaker maker);

}  // namespace NQELVSK20
