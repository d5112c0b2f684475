#include "cimxml/client/CIMClientRep.h"

#include <atomic>
#include <chrono>
#include <string_view>

#include "cimxml/client/AnswerCheck.h"
#include "cimxml/client/ApiText.h"
#include "cimxml/client/ConnectCheck.h"
#include "cimxml/client/ErrorTranslation.h"
#include "cimxml/client/SSLCallback.h"
#include "cimxml/common/Utf8.h"
#include "cimxml/wire/TcpStream.h"
#include "cimxml/wire/TlsStream.h"
#include "cimxml/wire/WireError.h"

namespace Pegasus {

using cimxml::CimRequest;
using cimxml::Deadline;
using cimxml::HttpSession;
using cimxml::RequestWriter;
using cimxml::ResponseReader;
using cimxml::TcpStream;
using cimxml::TlsStream;
using cimxml::WireError;

namespace {

std::string nextMessageId() {
    static std::atomic<Uint32> last{1000};
    return std::to_string(++last);
}

std::string hostOrLocal(const String& host) {
    return host.size() == 0 ? "localhost" : toUtf8(host);
}

/// Credentials in UTF-8, in one place: memory that a text grows out of would keep them.
std::string credentialText(const String& text) {
    constexpr std::size_t longestOfAUnit = 3;
    std::string out;
    out.reserve(text.size() * longestOfAUnit);
    appendUtf8(out, text);
    return out;
}

/// A namespace without slashes around it.
std::string bareNamespace(const CIMNamespaceName& nameSpace) {
    const std::string text = toUtf8(nameSpace.getString());
    const std::size_t first = text.find_first_not_of('/');
    return first == std::string::npos ? std::string()
                                      : text.substr(first, text.find_last_not_of('/') - first + 1);
}

/// The path of an object in a namespace, as the CIMObject field has it.
std::string localPath(const CIMNamespaceName& nameSpace, const CIMObjectPath& path) {
    const CIMNamespaceName bare =
        nameSpace.isNull() ? nameSpace : CIMNamespaceName(bareNamespace(nameSpace).c_str());
    return toUtf8(CIMObjectPath(String(), bare, path.getClassName(), path.getKeyBindings()).toString());
}

}  // namespace

CIMClientRep::CIMClientRep(const cimxml::Limits& limits) : _limits(limits), _session(limits) {}

Deadline CIMClientRep::deadline() const {
    return Deadline::after(std::chrono::milliseconds(_timeoutMilliseconds));
}

void CIMClientRep::requireUnconnected() const {
    if (isConnected()) {
        throw AlreadyConnectedException();
    }
}

void CIMClientRep::connect(const String& host, Uint32 portNumber, const String& userName,
                           const String& password) {
    const std::string name = hostOrLocal(host);
    const auto silence = _limits.connectSilence;
    connect([=](Deadline until) { return TcpStream::connect(name, portNumber, until, silence); }, host,
            portNumber, userName, password);
}

void CIMClientRep::connect(const String& host, Uint32 portNumber, const SSLContext& sslContext,
                           const String& userName, const String& password) {
    requireUnconnected();
    const std::string name = hostOrLocal(host);
    requireHost(name, portNumber);
    std::shared_ptr<const cimxml::TlsContext> context;
    try {
        context = SSLCallback::makeContext(sslContext);
    } catch (const WireError& error) {
        throwForUser(error, String());
    }
    const auto silence = _limits.connectSilence;
    connect(
        [=](Deadline until) {
            return std::make_unique<TlsStream>(TcpStream::connect(name, portNumber, until, silence), context,
                                               name, until, silence);
        },
        host, portNumber, userName, password);
}

void CIMClientRep::connect(HttpSession::Connector connector, const String& host, Uint32 portNumber,
                           const String& userName, const String& password) {
    requireUnconnected();
    const std::string name = hostOrLocal(host);
    requireHost(name, portNumber);
    const String locator((name + ":" + std::to_string(portNumber)).c_str());
    requireCredentials(locator, userName, password);
    try {
        _session.connect(std::move(connector), name, portNumber,
                         cimxml::BasicAuthentication(credentialText(userName), credentialText(password)),
                         deadline());
    } catch (const WireError& error) {
        throwForUser(error, locator);
    }
    _locator = locator;
}

template <typename Read>
auto CIMClientRep::exchange(CimRequest request, const ResponseReader::Expected& expected, Read read) {
    if (!_session.isOpen()) {
        throw NotConnectedException();
    }
    _warning.clear();
    try {
        cimxml::HttpResponse answer = _session.call(request, deadline());
        checkAnswer(answer);
        ResponseReader reader(std::move(answer.body), expected, _limits);
        auto result = read(reader);
        _warning = toApiText(reader.warning());
        return result;
    } catch (const WireError& error) {
        throwForUser(error, _locator);
    }
}

template <typename Write, typename Read>
auto CIMClientRep::call(const char* method, const CIMNamespaceName& nameSpace, Write write, Read read) {
    const std::string id = nextMessageId();
    RequestWriter writer = RequestWriter::intrinsic(id, method, nameSpace);
    write(writer);
    return exchange({method, bareNamespace(nameSpace), writer.finish()}, {id, method, true}, read);
}

CIMClass CIMClientRep::getClass(const CIMNamespaceName& nameSpace, const CIMName& className, bool localOnly,
                                bool includeQualifiers, bool includeClassOrigin,
                                const CIMPropertyList& propertyList) {
    return call(
        "GetClass", nameSpace,
        [&](RequestWriter& request) {
            request.className(className)
                .flag("LocalOnly", localOnly, true)
                .flag("IncludeQualifiers", includeQualifiers, true)
                .flag("IncludeClassOrigin", includeClassOrigin, false)
                .propertyList(propertyList);
        },
        [](ResponseReader& answer) { return answer.readClass(); });
}

CIMInstance CIMClientRep::getInstance(const CIMNamespaceName& nameSpace, const CIMObjectPath& instanceName,
                                      bool localOnly, bool includeQualifiers, bool includeClassOrigin,
                                      const CIMPropertyList& propertyList) {
    return call(
        "GetInstance", nameSpace,
        [&](RequestWriter& request) {
            request.instanceName(instanceName)
                .flag("LocalOnly", localOnly, true)
                .flag("IncludeQualifiers", includeQualifiers, false)
                .flag("IncludeClassOrigin", includeClassOrigin, false)
                .propertyList(propertyList);
        },
        [](ResponseReader& answer) {
            CIMInstance instance = answer.readInstance();
            instance.setPath(CIMObjectPath(String(), CIMNamespaceName(), instance.getClassName()));
            return instance;
        });
}

Array<CIMClass> CIMClientRep::enumerateClasses(const CIMNamespaceName& nameSpace, const CIMName& className,
                                               bool deepInheritance, bool localOnly, bool includeQualifiers,
                                               bool includeClassOrigin) {
    return call(
        "EnumerateClasses", nameSpace,
        [&](RequestWriter& request) {
            request.className(className)
                .flag("DeepInheritance", deepInheritance, false)
                .flag("LocalOnly", localOnly, true)
                .flag("IncludeQualifiers", includeQualifiers, true)
                .flag("IncludeClassOrigin", includeClassOrigin, false);
        },
        [](ResponseReader& answer) { return answer.readClasses(); });
}

Array<CIMName> CIMClientRep::enumerateClassNames(const CIMNamespaceName& nameSpace, const CIMName& className,
                                                 bool deepInheritance) {
    return call(
        "EnumerateClassNames", nameSpace,
        [&](RequestWriter& request) {
            request.className(className).flag("DeepInheritance", deepInheritance, false);
        },
        [](ResponseReader& answer) { return answer.readClassNames(); });
}

Array<CIMInstance> CIMClientRep::enumerateInstances(const CIMNamespaceName& nameSpace,
                                                    const CIMName& className, bool deepInheritance,
                                                    bool localOnly, bool includeQualifiers,
                                                    bool includeClassOrigin,
                                                    const CIMPropertyList& propertyList) {
    return call(
        "EnumerateInstances", nameSpace,
        [&](RequestWriter& request) {
            request.className(className)
                .flag("LocalOnly", localOnly, true)
                .flag("DeepInheritance", deepInheritance, true)
                .flag("IncludeQualifiers", includeQualifiers, false)
                .flag("IncludeClassOrigin", includeClassOrigin, false)
                .propertyList(propertyList);
        },
        [](ResponseReader& answer) { return answer.readInstances(); });
}

Array<CIMObjectPath> CIMClientRep::enumerateInstanceNames(const CIMNamespaceName& nameSpace,
                                                          const CIMName& className) {
    return call(
        "EnumerateInstanceNames", nameSpace, [&](RequestWriter& request) { request.className(className); },
        [](ResponseReader& answer) { return answer.readInstanceNames(); });
}

CIMValue CIMClientRep::invokeMethod(const CIMNamespaceName& nameSpace, const CIMObjectPath& instanceName,
                                    const CIMName& methodName, const Array<CIMParamValue>& inParameters,
                                    Array<CIMParamValue>& outParameters) {
    const std::string id = nextMessageId();
    const std::string method = toUtf8(methodName.getString());
    RequestWriter writer = RequestWriter::extrinsic(id, method, nameSpace, instanceName);
    writer.parameters(inParameters);
    Array<CIMParamValue> results;
    const CIMValue returnValue =
        exchange({method, localPath(nameSpace, instanceName), writer.finish()}, {id, method, false},
                 [&](ResponseReader& answer) { return answer.readMethodResult(results); });
    outParameters = results;
    return returnValue;
}

}  // namespace Pegasus
