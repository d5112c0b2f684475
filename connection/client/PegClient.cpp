#include "cimhttp/PegClient.h"

#include <Pegasus/Common/Exception.h>

#include <array>
#include <cstdio>
#include <limits>
#include <utility>

#include "cimhttp/ClientObserver.h"
#include "connection/client/ServerLink.h"
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
    explicit Impl(std::size_t node) : node_(node) {}

    ServerLink& Link() { return *link_; }
    void SetObserver(ClientObserver* observer) { observer_ = observer; }
    bool TimedOut() const { return timedOut_; }

    enum class Opening { kDone, kFailed, kGivenUp };

    Opening Open(const char* operation, const ServerAddress& address);
    bool OpenEither(const std::string& host, const std::string& user, const std::string& password);
    void Disconnect();
    bool Reconnect();

    /// False when there was no answer.
    template <class TSend>
    bool Request(const char* operation, const std::string& subject, unsigned int timeout, const TSend& send);
    void PassOn(const std::string& className, const Pegasus::Array<Pegasus::CIMInstance>& instances);
    void PassOn(const std::string& className, const Pegasus::CIMClass& definition);

private:
    enum class Outcome { kDone, kTimedOut, kRefused, kBroken };

    template <class TStep>
    bool Tell(const ClientRequest& request, const TStep& step);
    Opening TryToOpen(const ServerAddress& address, ClientFailure& failure);
    template <class TSend>
    bool TryTwice(unsigned int timeout, const TSend& send, ClientFailure& failure);
    template <class TSend>
    Outcome Attempt(const TSend& send, ClientFailure& failure);
    bool MayTryAgain(const ClientFailure& failure);
    void GiveUp(const ClientFailure& failure);
    void PassWarningOn(const ClientFailure& request);
    ClientFailure FailureOf(const char* operation, const std::string& subject) const;

    const std::size_t node_;
    const std::unique_ptr<ServerLink> link_ = MakeServerLink();
    bool isConnected_ = false;
    ServerAddress address_;  // where the last connection was opened, or tried
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

// Takes the step between its beginning and its end, of which the observer hears.
template <class TStep>
bool PegClient::Impl::Tell(const ClientRequest& request, const TStep& step) {
    if (observer_ == nullptr) {
        return step();
    }
    observer_->Begun(request);
    const bool answered = step();
    observer_->Ended(request, answered);
    return answered;
}

void PegClient::Impl::PassOn(const std::string& className,
                             const Pegasus::Array<Pegasus::CIMInstance>& instances) {
    if (observer_ != nullptr) {
        observer_->Received({node_, "EnumerateInstances", className}, instances);
    }
}

void PegClient::Impl::PassOn(const std::string& className, const Pegasus::CIMClass& definition) {
    if (observer_ != nullptr) {
        observer_->Defined({node_, "GetClass", className}, definition);
    }
}

PegClient::Impl::Opening PegClient::Impl::Open(const char* operation, const ServerAddress& address) {
    ClientFailure failure = FailureOf(operation, {});
    Opening opening = Opening::kFailed;
    Tell(failure, [&] {
        opening = TryToOpen(address, failure);
        return opening == Opening::kDone;
    });
    return opening;
}

PegClient::Impl::Opening PegClient::Impl::TryToOpen(const ServerAddress& address, ClientFailure& failure) {
    address_ = address;
    failure.kind = Kind::kCannotConnect;
    const auto fail = [&](const char* exception, const Pegasus::Exception& error) {
        failure.text = ToText(error);
        LogFailure(exception, failure);
    };
    try {
        link_->SetTimeout(kConnectTimeoutMs);
        link_->Connect(address);
        isConnected_ = true;
        if (observer_ != nullptr) {
            observer_->Connected(node_, address.isEncrypted);
        }
        return Opening::kDone;
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
    return MayTryAgain(failure) ? Opening::kFailed : Opening::kGivenUp;
}

bool PegClient::Impl::OpenEither(const std::string& host, const std::string& user,
                                 const std::string& password) {
    const Opening encrypted = Open("HTTPSConnect", {true, host, kHttpsPort, user, password});
    return encrypted == Opening::kDone ||
           (encrypted == Opening::kFailed &&
            Open("HTTPConnect", {false, host, kHttpPort, user, password}) == Opening::kDone);
}

void PegClient::Impl::Disconnect() {
    if (isConnected_) {
        link_->Disconnect();
        isConnected_ = false;
    }
}

bool PegClient::Impl::Reconnect() {
    Disconnect();
    return Tell({node_, "Reconnect", {}}, [&] {
        ReconnectPause(kReconnectPauseMs);
        return OpenEither(address_.host, address_.user, address_.password);
    });
}

void PegClient::Impl::PassWarningOn(const ClientFailure& request) {
    const std::string warning = link_->Warning();
    if (warning.empty()) {
        return;
    }
    LogTrace("Warning in PegClient::" + request.operation + "(): " + request.subject + ": " + warning);
    if (observer_ != nullptr) {
        observer_->Warned(node_, request.subject, warning);
    }
}

template <class TSend>
PegClient::Impl::Outcome PegClient::Impl::Attempt(const TSend& send, ClientFailure& failure) {
    try {
        send(*link_);
        PassWarningOn(failure);
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
bool PegClient::Impl::Request(const char* operation, const std::string& subject, unsigned int timeout,
                              const TSend& send) {
    timedOut_ = false;
    if (!isConnected_) {
        return false;
    }
    ClientFailure failure = FailureOf(operation, subject);
    return Tell(failure, [&] { return TryTwice(timeout, send, failure); });
}

template <class TSend>
bool PegClient::Impl::TryTwice(unsigned int timeout, const TSend& send, ClientFailure& failure) {
    link_->SetTimeout(timeout);
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        const Outcome outcome = Attempt(send, failure);
        timedOut_ = outcome == Outcome::kTimedOut;
        if (outcome == Outcome::kDone) {
            if (attempt > 0 && observer_ != nullptr) {
                observer_->Recovered(failure);
            }
            return true;
        }
        if (!MayTryAgain(failure)) {
            GiveUp(failure);
            return false;
        }
        if (outcome == Outcome::kRefused) {
            return false;
        }
        if (outcome == Outcome::kTimedOut) {
            link_->SetTimeout(Doubled(timeout));
        } else {
            Reconnect();
            link_->SetTimeout(timeout);  // connecting set its own
        }
    }
    return false;
}

PegClient::PegClient(std::size_t node) : impl_(std::make_unique<Impl>(node)) {}

PegClient::~PegClient() = default;

Pegasus::CIMClient* PegClient::GetCIMClient() {
    return &impl_->Link().Library();
}

void PegClient::SetObserver(ClientObserver* observer) {
    impl_->SetObserver(observer);
}

bool PegClient::LastRequestTimedOut() const {
    return impl_->TimedOut();
}

bool PegClient::HTTPConnect(std::string host, std::string user, std::string password, int port) {
    return impl_->Open("HTTPConnect", {false, host, port, user, password}) == Impl::Opening::kDone;
}

bool PegClient::HTTPSConnect(std::string host, std::string user, std::string password, int port) {
    return impl_->Open("HTTPSConnect", {true, host, port, user, password}) == Impl::Opening::kDone;
}

bool PegClient::Connect(std::string host, std::string user, std::string password) {
    return impl_->OpenEither(host, user, password);
}

void PegClient::Disconnect() {
    impl_->Disconnect();
}

void PegClient::Reconnect() {
    impl_->Reconnect();
}

Pegasus::CIMClass PegClient::GetClass(std::string nameSpace, std::string className, unsigned int timeout,
                                      bool localOnly, bool includeQualifiers, bool includeClassOrigin,
                                      const Pegasus::CIMPropertyList& propertyList) {
    Pegasus::CIMClass result;
    const bool answered = impl_->Request("GetClass", className, timeout, [&](ServerLink& link) {
        result = link.GetClass(FromNamespace(nameSpace), FromName(className), localOnly, includeQualifiers,
                               includeClassOrigin, propertyList);
    });
    if (answered) {
        impl_->PassOn(className, result);
    }
    return result;
}

Pegasus::Array<Pegasus::CIMInstance> PegClient::EnumerateInstances(
    std::string nameSpace, std::string className, unsigned int timeout, bool deepInheritance, bool localOnly,
    bool includeQualifiers, bool includeClassOrigin, const Pegasus::CIMPropertyList& propertyList) {
    Pegasus::Array<Pegasus::CIMInstance> result;
    const bool answered = impl_->Request("EnumerateInstances", className, timeout, [&](ServerLink& link) {
        result = link.EnumerateInstances(FromNamespace(nameSpace), FromName(className), deepInheritance,
                                         localOnly, includeQualifiers, includeClassOrigin, propertyList);
    });
    if (answered) {
        impl_->PassOn(className, result);
    }
    return result;
}

Pegasus::CIMValue PegClient::InvokeMethod(std::string nameSpace, const Pegasus::CIMObjectPath& path,
                                          std::string method,
                                          const Pegasus::Array<Pegasus::CIMParamValue>& inputs,
                                          Pegasus::Array<Pegasus::CIMParamValue>& outputs,
                                          unsigned int timeout) {
    Pegasus::CIMValue result;
    impl_->Request("InvokeMethod", method, timeout, [&](ServerLink& link) {
        outputs.clear();  // an attempt that failed may have left some
        result = link.InvokeMethod(FromNamespace(nameSpace), path, FromName(method), inputs, outputs);
    });
    return result;
}

std::vector<std::string> PegClient::EnumerateClassNames(std::string nameSpace, std::string className,
                                                        bool deepInheritance, unsigned int timeout) {
    std::vector<std::string> result;
    impl_->Request("EnumerateClassNames", className, timeout, [&](ServerLink& link) {
        const Pegasus::Array<Pegasus::CIMName> names =
            link.EnumerateClassNames(FromNamespace(nameSpace), FromName(className), deepInheritance);
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
    impl_->Request("EnumerateInstanceNames", className, timeout, [&](ServerLink& link) {
        const Pegasus::Array<Pegasus::CIMObjectPath> paths =
            link.EnumerateInstanceNames(FromNamespace(nameSpace), FromName(className));
        result.reserve(paths.size());
        for (Pegasus::Uint32 i = 0; i < paths.size(); ++i) {
            result.push_back(ToText(paths[i].toString()));
        }
    });
    return result;
}

}  // namespace NQELVSK20
