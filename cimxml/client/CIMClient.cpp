#include <Pegasus/Client/CIMClient.h>

#include "cimxml/client/CIMClientRep.h"

namespace Pegasus {

CIMClient::CIMClient() : _rep(std::make_unique<CIMClientRep>()) {}

CIMClient::~CIMClient() = default;

Uint32 CIMClient::getTimeout() const {
    return _rep->getTimeout();
}

void CIMClient::setTimeout(Uint32 timeoutMilliseconds) {
    _rep->setTimeout(timeoutMilliseconds);
}

void CIMClient::connect(const String& host, const Uint32 portNumber, const String& userName,
                        const String& password) {
    _rep->connect(host, portNumber, userName, password);
}

void CIMClient::connect(const String& host, const Uint32 portNumber, const SSLContext& sslContext,
                        const String& userName, const String& password) {
    _rep->connect(host, portNumber, sslContext, userName, password);
}

void CIMClient::disconnect() {
    _rep->disconnect();
}

Boolean CIMClient::isConnected() const noexcept {
    return _rep->isConnected();
}

String CIMClient::getWarning() const {
    return _rep->getWarning();
}

CIMClass CIMClient::getClass(const CIMNamespaceName& nameSpace, const CIMName& className, Boolean localOnly,
                             Boolean includeQualifiers, Boolean includeClassOrigin,
                             const CIMPropertyList& propertyList) {
    return _rep->getClass(nameSpace, className, localOnly, includeQualifiers, includeClassOrigin,
                          propertyList);
}

CIMInstance CIMClient::getInstance(const CIMNamespaceName& nameSpace, const CIMObjectPath& instanceName,
                                   Boolean localOnly, Boolean includeQualifiers, Boolean includeClassOrigin,
                                   const CIMPropertyList& propertyList) {
    return _rep->getInstance(nameSpace, instanceName, localOnly, includeQualifiers, includeClassOrigin,
                             propertyList);
}

Array<CIMClass> CIMClient::enumerateClasses(const CIMNamespaceName& nameSpace, const CIMName& className,
                                            Boolean deepInheritance, Boolean localOnly,
                                            Boolean includeQualifiers, Boolean includeClassOrigin) {
    return _rep->enumerateClasses(nameSpace, className, deepInheritance, localOnly, includeQualifiers,
                                  includeClassOrigin);
}

Array<CIMName> CIMClient::enumerateClassNames(const CIMNamespaceName& nameSpace, const CIMName& className,
                                              Boolean deepInheritance) {
    return _rep->enumerateClassNames(nameSpace, className, deepInheritance);
}

Array<CIMInstance> CIMClient::enumerateInstances(const CIMNamespaceName& nameSpace, const CIMName& className,
                                                 Boolean deepInheritance, Boolean localOnly,
                                                 Boolean includeQualifiers, Boolean includeClassOrigin,
                                                 const CIMPropertyList& propertyList) {
    return _rep->enumerateInstances(nameSpace, className, deepInheritance, localOnly, includeQualifiers,
                                    includeClassOrigin, propertyList);
}

Array<CIMObjectPath> CIMClient::enumerateInstanceNames(const CIMNamespaceName& nameSpace,
                                                       const CIMName& className) {
    return _rep->enumerateInstanceNames(nameSpace, className);
}

CIMValue CIMClient::invokeMethod(const CIMNamespaceName& nameSpace, const CIMObjectPath& instanceName,
                                 const CIMName& methodName, const Array<CIMParamValue>& inParameters,
                                 Array<CIMParamValue>& outParameters) {
    return _rep->invokeMethod(nameSpace, instanceName, methodName, inParameters, outParameters);
}

}  // namespace Pegasus
