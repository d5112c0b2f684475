#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>

#include <cstddef>
#include <string>

namespace NQELVSK20 {

/// What a node's client is asked to do, with all its attempts.
struct ClientRequest {
    std::size_t node = 0;   ///< Zero-based, in the order in which the nodes were connected.
    std::string operation;  ///< As in the log, e.g. "EnumerateInstances", "HTTPSConnect".
    std::string subject;    ///< The class, or the method, that was asked for; empty when connecting.
};

/// One attempt of a node's client that failed.
struct ClientFailure : ClientRequest {
    enum class Kind {
        kCannotConnect,       ///< No connection could be opened.
        kRefusedCredentials,  ///< The server does not take user and password, or asks for some.
        kCimError,            ///< The server answered with a CIM error (DSP0200).
        kTimeout,             ///< No answer in time.
        kBroken               ///< Anything else: the connection was lost, or the answer is none.
    };

    Kind kind = Kind::kBroken;
    int code = 0;      ///< The CIM status code of a CIM error; 0 for the other kinds.
    std::string text;  ///< The remote library's message.
};

/// Hears what becomes of the connections and requests of a namespace's nodes, while it happens and on the
/// thread that it happens on. Must not call back into the namespace, and must not throw.
class ClientObserver {
public:
    virtual ~ClientObserver() = default;

    /// An attempt failed. False asks for no further one of this request, where the client would make another;
    /// a client whose credentials were refused then disconnects, so that no later request shows them again.
    /// Of a connection over HTTPS that could not be opened it asks for none over HTTP, where all is readable
    /// that is sent: neither now nor in the place of one that breaks, for which this is called again.
    virtual bool AttemptFailed(const ClientFailure& failure) = 0;

    /// The attempt after the one that failed so was answered.
    virtual void Recovered(const ClientFailure& failure) = 0;

    /// The answer about `subject`, a class or a method, had something that was read past, as `text` tells.
    virtual void Warned(std::size_t /*node*/, const std::string& /*subject*/, const std::string& /*text*/) {}

    /// A client begins what it was asked for, also to connect or, as "Reconnect", to do so anew: a request
    /// within a request.
    virtual void Begun(const ClientRequest& /*request*/) {}

    /// What was begun last is over; `answered` when it went well.
    virtual void Ended(const ClientRequest& /*request*/, bool /*answered*/) {}

    /// The instances of an answer as the server gave them, nulls included, before any is taken over.
    virtual void Received(const ClientRequest& /*request*/,
                          const Pegasus::Array<Pegasus::CIMInstance>& /*instances*/) {}

    /// The definition of a class as a server gave it, with all its qualifiers.
    virtual void Defined(const ClientRequest& /*request*/, const Pegasus::CIMClass& /*definition*/) {}

    /// A connection to a node was opened, also a new one after a request's connection broke.
    virtual void Connected(std::size_t node, bool isEncrypted) = 0;
};

}  // namespace NQELVSK20
