#include "cimhttp/PegClient.h"

#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/SSLContext.h>

#include <array>
#include <cstdio>
#include <limits>
#include <utility>

#include "cimhttp/ClientObserver.h"
#include "connection/client/Waiting.h"
#include "provider/contract/HostReport.h"
#include "provider/contract/PegText.h"

namespace NQELVSK20 {

namespace {

using Kind = ClientFailure::Kind;

constexpr int kAttempts = 2;
constexpr std::size_t kLogBufferSize = 4096;

// Longer text is cut at the buffer's size, the terminating zero included.
void LogFailure(const char* exception, const ClientFailure& failure) {
    std::array<char, kLogBufferSize> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%s in PegClient::%s(): %s", exception,
                  failure.operation.c_str(), failure.text.c_str());
    LogTrace(buffer.data());
}

// The remote library tells every HTTP status by one exception and in its text alone.
bool IsAboutCredentials(const std::string& text) {
    return text.compare(0, 15, "HTTP Error (401") == 0;
}

// Twice a time-out; one too long to be doubled stays as long as can be.
unsigned int Doubled(unsigned int timeout) {
    constexpr unsigned int kLongest = std::numeric_limits<unsigned int>::max();
    return timeout > kLongest / 2 ? kLongest : 2 * timeout;
}

}  // namespace

class PegClient::Impl {
public:
    enum State : int { kDisconnected = 0, kHttp = 1, kHttps = 2 };

    explicit Impl(std::size_t node) : node_(node) {}

    Pegasus::CIMClient& Client() { return client_; }
    void SetObserver(ClientObserver* observer) { observer_ = observer; }
    bool TimedOut() const { return timedOut_; }

    void Remember(const std::string& host, const std::string& user, const std::string& password);
    template <class TConnect>
    bool Open(const char* operation, State newState, const TConnect& connect);
    void Disconnect();
    bool Reconnect(PegClient& self);

    template <class TSend>
    void Request(PegClient& self, const char* operation, const std::string& subject, unsigned int timeout,
                 const TSend& send);

private:
    enum class Outcome { kDone, kTimedOut, kRefused, kBroken };

    template <class TSend>
    Outcome Attempt(const TSend& send, ClientFailure& failure);
    bool MayTryAgain(const ClientFailure& failure);
    void GiveUp(const ClientFailure& failure);
    ClientFailure FailureOf(const char* operation, const std::string& subject) const;

    /// How long the client library waits from now on, in milliseconds.
    void LimitWaiting(unsigned int timeout) { client_.setTimeout(ClientTimeout(timeout)); }

    const std::size_t node_;
    int state_ = kDisconnected;
    std::string host_;
    std::string user_;
    std::string password_;
    Pegasus::CIMClient client_;
    bool timedOut_ = false;
    ClientObserver* observer_ = nullptr;
};

ClientFailure PegClient::Impl::FailureOf(const char* operation, const std::string& subject) const {
    ClientFailure failure;
    failure.node = node_;
    failure.operation = operation;
    failure.subject = subject;
    return failure;
}

bool PegClient::Impl::MayTryAgain(const ClientFailure& failure) {
    return observer_ == nullptr || observer_->AttemptFailed(failure);
}

// A later request would show the server the same credentials again, and some lock an account that does.
void PegClient::Impl::GiveUp(const ClientFailure& failure) {
    if (failure.kind == Kind::kRefusedCredentials) {
        Disconnect();
    }
}

void PegClient::Impl::Remember(const std::string& host, const std::string& user,
                               const std::string& password) {
    host_ = host;
    user_ = user;
    password_ = password;
}

template <class TConnect>
bool PegClient::Impl::Open(const char* operation, State newState, const TConnect& connect) {
    ClientFailure failure = FailureOf(operation, {});
    failure.kind = Kind::kCannotConnect;
    const auto fail = [&](const char* exception, const Pegasus::Exception& error) {
        failure.text = ToText(error);
        LogFailure(exception, failure);
    };
    try {
        LimitWaiting(kConnectTimeoutMs);
        connect(client_);
        state_ = newState;
        if (observer_ != nullptr) {
            observer_->Connected(node_, newState == kHttps);
        }
        return true;
    } catch (const Pegasus::AlreadyConnectedException& error) {
        fail("AlreadyConnectedException", error);
    } catch (const Pegasus::InvalidLocatorException& error) {
        fail("InvalidLocatorException", error);
    } catch (const Pegasus::CannotCreateSocketException& error) {
        fail("CannotCreateSocketException", error);
    } catch (const Pegasus::CannotConnectException& error) {
        fail("CannotConnectException", error);
    } catch (const Pegasus::Exception& error) {
        fail("Exception", error);
    }
    MayTryAgain(failure);
    return false;
}

void PegClient::Impl::Disconnect() {
    if (state_ == kDisconnected) {
        return;
    }
    client_.disconnect();
    state_ = kDisconnected;
}

bool PegClient::Impl::Reconnect(PegClient& self) {
    Disconnect();
    ReconnectPause(kReconnectPauseMs);
    return self.Connect(host_, user_, password_);
}

template <class TSend>
PegClient::Impl::Outcome PegClient::Impl::Attempt(const TSend& send, ClientFailure& failure) {
    try {
        send(client_);
        return Outcome::kDone;
    } catch (const Pegasus::ConnectionTimeoutException& error) {
        failure.kind = Kind::kTimeout;
        failure.text = ToText(error);
        LogFailure("ConnectionTimeoutException", failure);
        return Outcome::kTimedOut;
    } catch (const Pegasus::CIMException& error) {
        failure.kind = Kind::kCimError;
        failure.code = static_cast<int>(error.getCode());
        failure.text = ToText(error);
        LogFailure("CIMException", failure);
        return Outcome::kRefused;
    } catch (const Pegasus::Exception& error) {
        failure.text = ToText(error);
        failure.kind = IsAboutCredentials(failure.text) ? Kind::kRefusedCredentials : Kind::kBroken;
        LogFailure("Exception", failure);
        return Outcome::kBroken;
    }
}

template <class TSend>
void PegClient::Impl::Request(PegClient& self, const char* operation, const std::string& subject,
                              unsigned int timeout, const TSend& send) {
    timedOut_ = false;
    if (state_ == kDisconnected) {
        return;
    }
    LimitWaiting(timeout);
    ClientFailure failure = FailureOf(operation, subject);
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        const Outcome outcome = Attempt(send, failure);
        timedOut_ = outcome == Outcome::kTimedOut;
        if (outcome == Outcome::kDone) {
            if (attempt > 0 && observer_ != nullptr) {
                observer_->Recovered(failure);
            }
            return;
        }
        if (!MayTryAgain(failure)) {
            GiveUp(failure);
            return;
        }
        if (outcome == Outcome::kRefused) {
            return;
        }
        if (outcome == Outcome::kTimedOut) {
            LimitWaiting(Doubled(timeout));
        } else {
            Reconnect(self);
            LimitWaiting(timeout);  // connecting set its own
        }
    }
}

PegClient::PegClient(std::size_t node) : impl_(std::make_unique<Impl>(node)) {}

PegClient::~PegClient() = default;

Pegasus::CIMClient* PegClient::GetCIMClient() {
    return &impl_->Client();
}

void PegClient::SetObserver(ClientObserver* observer) {
    impl_->SetObserver(observer);
}

bool PegClient::LastRequestTimedOut() const {
    return impl_->TimedOut();
}

bool PegClient::HTTPConnect(std::string host, std::string user, std::string password, int port) {
    impl_->Remember(host, user, password);
    return impl_->Open("HTTPConnect", Impl::kHttp, [&](Pegasus::CIMClient& client) {
        client.connect(FromText(host), static_cast<Pegasus::Uint32>(port), FromText(user),
                       FromText(password));
    });
}

bool PegClient::HTTPSConnect(std::string host, std::string user, std::string password, int port) {
    impl_->Remember(host, user, password);
    return impl_->Open("HTTPSConnect", Impl::kHttps, [&](Pegasus::CIMClient& client) {
        // No trust store and no callback: the certificate is not checked.
        const Pegasus::SSLContext context(Pegasus::String::EMPTY, nullptr, Pegasus::String::EMPTY);
        client.connect(FromText(host), static_cast<Pegasus::Uint32>(port), context, FromText(user),
                       FromText(password));
    });
}

bool PegClient::Connect(std::string host, std::string user, std::string password) {
    return HTTPSConnect(host, user, password, kHttpsPort) || HTTPConnect(host, user, password, kHttpPort);
}

void PegClient::Disconnect() {
    impl_->Disconnect();
}

void PegClient::Reconnect() {
    impl_->Reconnect(*this);
}

Pegasus::CIMClass PegClient::GetClass(std::string nameSpace, std::string className, unsigned int timeout,
                                      bool localOnly, bool includeQualifiers, bool includeClassOrigin,
                                      const Pegasus::CIMPropertyList& propertyList) {
    Pegasus::CIMClass result;
    impl_->Request(*this, "GetClass", className, timeout, [&](Pegasus::CIMClient& client) {
        result = client.getClass(FromNamespace(nameSpace), FromName(className), localOnly, includeQualifiers,
                                 includeClassOrigin, propertyList);
    });
    return result;
}

Pegasus::Array<Pegasus::CIMInstance> PegClient::EnumerateInstances(
    std::string nameSpace, std::string className, unsigned int timeout, bool deepInheritance, bool localOnly,
    bool includeQualifiers, bool includeClassOrigin, const Pegasus::CIMPropertyList& propertyList) {
    Pegasus::Array<Pegasus::CIMInstance> result;
    impl_->Request(*this, "EnumerateInstances", className, timeout, [&](Pegasus::CIMClient& client) {
        result = client.enumerateInstances(FromNamespace(nameSpace), FromName(className), deepInheritance,
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
    impl_->Request(*this, "InvokeMethod", method, timeout, [&](Pegasus::CIMClient& client) {
        outputs.clear();  // an attempt that failed may have left some
        result = client.invokeMethod(FromNamespace(nameSpace), path, FromName(method), inputs, outputs);
    });
    return result;
}

std::vector<std::string> PegClient::EnumerateClassNames(std::string nameSpace, std::string className,
                                                        bool deepInheritance, unsigned int timeout) {
    std::vector<std::string> result;
    impl_->Request(*this, "EnumerateClassNames", className, timeout, [&](Pegasus::CIMClient& client) {
        const Pegasus::Array<Pegasus::CIMName> names =
            client.enumerateClassNames(FromNamespace(nameSpace), FromName(className), deepInheritance);
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
    impl_->Request(*this, "EnumerateInstanceNames", className, timeout, [&](Pegasus::CIMClient& client) {
        const Pegasus::Array<Pegasus::CIMObjectPath> paths =
            client.enumerateInstanceNames(FromNamespace(nameSpace), FromName(className));
        result.reserve(paths.size());
        for (Pegasus::Uint32 i = 0; i < paths.size(); ++i) {
            result.push_back(ToText(paths[i].toString()));
        }
    });
    return result;
}

}  // namespace NQELVSK20
