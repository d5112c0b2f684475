#pragma once

#include <Pegasus/Client/CIMClientException.h>
#include <Pegasus/Client/Linkage.h>
#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObject.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/CIMQualifierDecl.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/SSLContext.h>
#include <Pegasus/Common/String.h>

#include <memory>

namespace Pegasus {

class CIMClientRep;

/// A client of one CIM server (CIM-XML over HTTP or HTTPS: DSP0200, DSP0201).
///
/// Calls are synchronous and run on the caller's thread alone; no other thread is started. An object must not
/// be used by two threads at once. Not copyable.
///
/// Every operation throws NotConnectedException before the first connect and after disconnect. Otherwise it
/// throws
///  - CIMException: the server answered with a CIM error; the code and the server's text are in it;
///  - ConnectionTimeoutException: no complete answer within the time-out;
///  - CIMClientHTTPErrorException: another HTTP status than 200, wrong credentials among them;
///  - CIMClientMalformedHTTPException: the server closed the connection, or what it sent is not HTTP;
///  - CIMClientXmlException, CIMClientResponseException: the answer cannot be decoded;
///  - CannotConnectException and the other exceptions of connect: an earlier operation had lost the
///    connection, and it could not be made again.
/// After each of them the client can be used as before; it reconnects by itself when it has to. A request is
/// never sent twice. Where an exception has a cause below it, that is nested in it (std::nested_exception).
class PEGASUS_CLIENT_LINKAGE CIMClient {
public:
    CIMClient();
    ~CIMClient();
    CIMClient(const CIMClient&) = delete;
    CIMClient& operator=(const CIMClient&) = delete;

    /// Time-out in milliseconds, 20000 by default. It covers one operation as a whole: reconnecting, sending,
    /// waiting and receiving; and each call of connect. The resolution of host names is not covered. Within
    /// it, a server that says nothing for 60 s while a connection is being made is given up, with a
    /// CannotConnectException that names the phase.
    Uint32 getTimeout() const;
    void setTimeout(Uint32 timeoutMilliseconds);

    /// Connects over HTTP. `host` is a name or an address, IPv6 with or without brackets; empty means
    /// localhost. User name and password are sent when the server asks for them only; the client overwrites
    /// its copies when it needs them no more. Throws AlreadyConnectedException,
    /// InvalidLocatorException for a host name that does not resolve or cannot be one,
    /// CannotCreateSocketException, CannotConnectException: also for a user name with a colon, or one or a
    /// password with a control character, which Basic authentication (RFC 7617) cannot carry.
    void connect(const String& host, const Uint32 portNumber, const String& userName, const String& password);

    /// Connects over HTTPS and completes the TLS handshake; without one CannotConnectException. Also throws
    /// SSLException when what the context names cannot be used.
    void connect(const String& host, const Uint32 portNumber, const SSLContext& sslContext,
                 const String& userName, const String& password);

    /// Closes the connection and forgets server and credentials. Harmless when not connected.
    void disconnect();

    /// Whether there is a connection, as far as is known: it is not looked at. False after an operation that
    /// lost it, until the next one has reconnected.
    Boolean isConnected() const noexcept;

    /// What had to be read past in the answer to the last operation, for people; empty when there was
    /// nothing, and after an operation that failed. OpenPegasus' client has nothing like it: it refuses such
    /// an answer.
    String getWarning() const;

    CIMClass getClass(const CIMNamespaceName& nameSpace, const CIMName& className, Boolean localOnly = true,
                      Boolean includeQualifiers = true, Boolean includeClassOrigin = false,
                      const CIMPropertyList& propertyList = CIMPropertyList());

    /// The path of the result holds the class name only.
    CIMInstance getInstance(const CIMNamespaceName& nameSpace, const CIMObjectPath& instanceName,
                            Boolean localOnly = true, Boolean includeQualifiers = false,
                            Boolean includeClassOrigin = false,
                            const CIMPropertyList& propertyList = CIMPropertyList());

    /// The subclasses of `className`; the classes without a superclass when it is null.
    Array<CIMClass> enumerateClasses(const CIMNamespaceName& nameSpace, const CIMName& className = CIMName(),
                                     Boolean deepInheritance = false, Boolean localOnly = true,
                                     Boolean includeQualifiers = true, Boolean includeClassOrigin = false);
    Array<CIMName> enumerateClassNames(const CIMNamespaceName& nameSpace,
                                       const CIMName& className = CIMName(), Boolean deepInheritance = false);

    /// The instances of `className` and its subclasses, with their paths without host and namespace.
    Array<CIMInstance> enumerateInstances(const CIMNamespaceName& nameSpace, const CIMName& className,
                                          Boolean deepInheritance = true, Boolean localOnly = true,
                                          Boolean includeQualifiers = false,
                                          Boolean includeClassOrigin = false,
                                          const CIMPropertyList& propertyList = CIMPropertyList());
    /// Paths without host and namespace.
    Array<CIMObjectPath> enumerateInstanceNames(const CIMNamespaceName& nameSpace, const CIMName& className);

    /// Runs a method on an instance or, with a path without keys, on a class. Replaces `outParameters`
    /// by the output parameters in the server's order and gives the return value, null when there is none.
    CIMValue invokeMethod(const CIMNamespaceName& nameSpace, const CIMObjectPath& instanceName,
                          const CIMName& methodName, const Array<CIMParamValue>& inParameters,
                          Array<CIMParamValue>& outParameters);

private:
    std::unique_ptr<CIMClientRep> _rep;
};

}  // namespace Pegasus
