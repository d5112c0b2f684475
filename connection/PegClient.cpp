#include "connection/PegClient.h"

#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/SSLContext.h>

#include <array>
#include <cstdio>
#include <limits>

#include "connection/Log.h"
#include "connection/PegText.h"
#include "connection/Ports.h"
#include "connection/Waiting.h"

namespace NQELVSK20 {

namespace {

constexpr Pegasus::Uint32 kConnectTimeoutMs = 65535000;  // about 18 hours: the host's network decides
constexpr unsigned int kReconnectPauseMs = 5000;
constexpr int kAttempts = 2;
constexpr std::size_t kLogBufferSize = 4096;

// Longer text is cut at the buffer's size, the terminating zero included.
void LogFailure(const char* kind, const char* operation, const Pegasus::Exception& error) {
    std::array<char, kLogBufferSize> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%s in PegClient::%s(): %s", kind, operation,
                  ToText(error).c_str());
    LogTrace(buffer.data());
}

// Twice a time-out; one too long to be doubled stays as long as can be.
unsigned int Doubled(unsigned int timeout) {
    constexpr unsigned int kLongest = std::numeric_limits<unsigned int>::max();
    return timeout > kLongest / 2 ? kLongest : 2 * timeout;
}

}  // namespace

PegClient::PegClient() : client_(std::make_unique<Pegasus::CIMClient>()) {}

PegClient::~PegClient() = default;

bool PegClient::HTTPConnect(std::string host, std::string user, std::string password, int port) {
    Remember(host, user, password);
    return Open("HTTPConnect", kHttp, [&] {
        client_->connect(FromText(host), static_cast<Pegasus::Uint32>(port), FromText(user),
                         FromText(password));
    });
}

bool PegClient::HTTPSConnect(std::string host, std::string user, std::string password, int port) {
    Remember(host, user, password);
    return Open("HTTPSConnect", kHttps, [&] {
        // No trust store and no callback: the certificate is not checked.
        const Pegasus::SSLContext context(Pegasus::String::EMPTY, nullptr, Pegasus::String::EMPTY);
        client_->connect(FromText(host), static_cast<Pegasus::Uint32>(port), context, FromText(user),
                         FromText(password));
    });
}

bool PegClient::Connect(std::string host, std::string user, std::string password) {
    return HTTPSConnect(host, user, password, kHttpsPort) || HTTPConnect(host, user, password, kHttpPort);
}

void PegClient::Disconnect() {
    if (state_ == kDisconnected) {
        return;
    }
    client_->disconnect();
    state_ = kDisconnected;
}

void PegClient::Reconnect() {
    Disconnect();
    ReconnectPause(kReconnectPauseMs);
    Connect(host_, user_, password_);
}

void PegClient::Remember(const std::string& host, const std::string& user, const std::string& password) {
    host_ = host;
    user_ = user;
    password_ = password;
}

void PegClient::LimitWaiting(unsigned int timeout) {
    client_->setTimeout(ClientTimeout(timeout));
}

bool PegClient::Open(const char* operation, State newState, const boost::function<void()>& connect) {
    try {
        LimitWaiting(kConnectTimeoutMs);
        connect();
        state_ = newState;
        return true;
    } catch (const Pegasus::AlreadyConnectedException& error) {
        LogFailure("AlreadyConnectedException", operation, error);
    } catch (const Pegasus::InvalidLocatorException& error) {
        LogFailure("InvalidLocatorException", operation, error);
    } catch (const Pegasus::CannotCreateSocketException& error) {
        LogFailure("CannotCreateSocketException", operation, error);
    } catch (const Pegasus::CannotConnectException& error) {
        LogFailure("CannotConnectException", operation, error);
    } catch (const Pegasus::Exception& error) {
        LogFailure("Exception", operation, error);
    }
    return false;
}

PegClient::Outcome PegClient::Attempt(const char* operation, const boost::function<void()>& send) {
    try {
        send();
        return Outcome::kDone;
    } catch (const Pegasus::ConnectionTimeoutException& error) {
        LogFailure("ConnectionTimeoutException", operation, error);
        return Outcome::kTimedOut;
    } catch (const Pegasus::CIMException& error) {
        LogFailure("CIMException", operation, error);
        return Outcome::kRefused;
    } catch (const Pegasus::Exception& error) {
        LogFailure("Exception", operation, error);
        return Outcome::kBroken;
    }
}

void PegClient::Request(const char* operation, unsigned int timeout, const boost::function<void()>& send) {
    timedOut_ = false;
    if (state_ == kDisconnected) {
        return;
    }
    LimitWaiting(timeout);
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        const Outcome outcome = Attempt(operation, send);
        timedOut_ = outcome == Outcome::kTimedOut;
        if (outcome == Outcome::kDone || outcome == Outcome::kRefused) {
            return;
        }
        if (outcome == Outcome::kTimedOut) {
            LimitWaiting(Doubled(timeout));
        } else {
            Reconnect();
            LimitWaiting(timeout);  // connecting set its own
        }
    }
}

Pegasus::CIMClass PegClient::GetClass(std::string nameSpace, std::string className, unsigned int timeout,
                                      bool localOnly, bool includeQualifiers, bool includeClassOrigin,
                                      const Pegasus::CIMPropertyList& propertyList) {
    Pegasus::CIMClass result;
    Request("GetClass", timeout, [&] {
        result = client_->getClass(FromNamespace(nameSpace), FromName(className), localOnly,
                                   includeQualifiers, includeClassOrigin, propertyList);
    });
    return result;
}

Pegasus::Array<Pegasus::CIMInstance> PegClient::EnumerateInstances(
    std::string nameSpace, std::string className, unsigned int timeout, bool deepInheritance, bool localOnly,
    bool includeQualifiers, bool includeClassOrigin, const Pegasus::CIMPropertyList& propertyList) {
    Pegasus::Array<Pegasus::CIMInstance> result;
    Request("EnumerateInstances", timeout, [&] {
        result = client_->enumerateInstances(FromNamespace(nameSpace), FromName(className), deepInheritance,
                                             localOnly, includeQualifiers, includeClassOrigin, propertyList);
    });
    return result;
}

Pegasus::CIMValue PegClient::InvokeMethod(std::string nameSpace, const Pegasus::CIMObjectPath& path,
                                          std::string method,
                                          const Pegasus::Array<Pegasus::CIMParamValue>& inputs,
                                          Pegasus::Array<Pegasus::CIMParamValue>& outputs,
                                          unsigned int timeout) {
    Pegasus::CIMValue result;
    Request("InvokeMethod", timeout, [&] {
        outputs.clear();  // an attempt that failed may have left some
        result = client_->invokeMethod(FromNamespace(nameSpace), path, FromName(method), inputs, outputs);
    });
    return result;
}

std::vector<std::string> PegClient::EnumerateClassNames(std::string nameSpace, std::string className,
                                                        bool deepInheritance, unsigned int timeout) {
    std::vector<std::string> result;
    Request("EnumerateClassNames", timeout, [&] {
        const Pegasus::Array<Pegasus::CIMName> names =
            client_->enumerateClassNames(FromNamespace(nameSpace), FromName(className), deepInheritance);
        result.reserve(names.size());
        for (Pegasus::Uint32 i = 0; i < names.size(); ++i) {
            result.push_back(ToText(names[i]));
        }
    });
    return result;
}

std::vector<std::string> PegClient::EnumerateInstanceNames(std::string nameSpace, std::string className,
                                                           unsigned int timeout) {
    std::vector<std::string> result;
    Request("EnumerateInstanceNames", timeout, [&] {
        const Pegasus::Array<Pegasus::CIMObjectPath> paths =
            client_->enumerateInstanceNames(FromNamespace(nameSpace), FromName(className));
        result.reserve(paths.size());
        for (Pegasus::Uint32 i = 0; i < paths.size(); ++i) {
            result.push_back(ToText(paths[i].toString()));
        }
    });
    return result;
}

}  // namespace NQELVSK20
