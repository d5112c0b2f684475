#pragma once

#include <Pegasus/Client/CIMClient.h>

#include <string>

#include "cimxml/wire/Deadline.h"
#include "cimxml/wire/HttpSession.h"
#include "cimxml/wire/Limits.h"
#include "cimxml/wire/RequestWriter.h"
#include "cimxml/wire/ResponseReader.h"

namespace Pegasus {

/// What is behind a CIMClient: the operations, one HTTP session, and the translation of the wire's errors.
/// See CIMClient for what the operations do and throw.
class CIMClientRep {
public:
    explicit CIMClientRep(const cimxml::Limits& limits = cimxml::Limits());

    Uint32 getTimeout() const { return _timeoutMilliseconds; }
    void setTimeout(Uint32 timeoutMilliseconds) { _timeoutMilliseconds = timeoutMilliseconds; }

    void connect(const String& host, Uint32 portNumber, const String& userName, const String& password);
    void connect(const String& host, Uint32 portNumber, const SSLContext& sslContext, const String& userName,
                 const String& password);
    /// Connects through streams that `connector` makes, in place of TCP and TLS.
    void connect(cimxml::HttpSession::Connector connector, const String& host, Uint32 portNumber,
                 const String& userName, const String& password);
    void disconnect() { _session.disconnect(); }
    bool isConnected() const { return _session.isConnected(); }
    const String& getWarning() const { return _warning; }

    CIMClass getClass(const CIMNamespaceName& nameSpace, const CIMName& className, bool localOnly,
                      bool includeQualifiers, bool includeClassOrigin, const CIMPropertyList& propertyList);
    CIMInstance getInstance(const CIMNamespaceName& nameSpace, const CIMObjectPath& instanceName,
                            bool localOnly, bool includeQualifiers, bool includeClassOrigin,
                            const CIMPropertyList& propertyList);
    Array<CIMClass> enumerateClasses(const CIMNamespaceName& nameSpace, const CIMName& className,
                                     bool deepInheritance, bool localOnly, bool includeQualifiers,
                                     bool includeClassOrigin);
    Array<CIMName> enumerateClassNames(const CIMNamespaceName& nameSpace, const CIMName& className,
                                       bool deepInheritance);
    Array<CIMInstance> enumerateInstances(const CIMNamespaceName& nameSpace, const CIMName& className,
                                          bool deepInheritance, bool localOnly, bool includeQualifiers,
                                          bool includeClassOrigin, const CIMPropertyList& propertyList);
    Array<CIMObjectPath> enumerateInstanceNames(const CIMNamespaceName& nameSpace, const CIMName& className);
    CIMValue invokeMethod(const CIMNamespaceName& nameSpace, const CIMObjectPath& instanceName,
                          const CIMName& methodName, const Array<CIMParamValue>& inParameters,
                          Array<CIMParamValue>& outParameters);

private:
    void requireUnconnected() const;
    cimxml::Deadline deadline() const;

    /// Calls an intrinsic method: `write` appends the parameters, `read` takes the result out of the answer.
    template <typename Write, typename Read>
    auto call(const char* method, const CIMNamespaceName& nameSpace, Write write, Read read);
    /// Sends a request and reads its answer.
    template <typename Read>
    auto exchange(cimxml::CimRequest request, const cimxml::ResponseReader::Expected& expected, Read read);

    cimxml::Limits _limits;
    cimxml::HttpSession _session;
    String _locator;
    String _warning;
    Uint32 _timeoutMilliseconds = 20000;
};

}  // namespace Pegasus
