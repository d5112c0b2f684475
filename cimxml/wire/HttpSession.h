#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "cimxml/wire/BasicAuthentication.h"
#include "cimxml/wire/ByteStream.h"
#include "cimxml/wire/HttpConnection.h"
#include "cimxml/wire/Limits.h"

namespace cimxml {

/// A CIM method call on its way to the server.
struct CimRequest {
    std::string method;  ///< Intrinsic or extrinsic method, e.g. "GetClass".
    std::string object;  ///< What it is called on: a namespace, or the path of a class or an instance.
    std::string body;    ///< The CIM-XML document.
};

/// The HTTP side of a client: one server, one connection at a time, credentials.
///
/// A request never reaches the server twice, save that one refused with 401 is sent again with credentials.
/// A connection that is found unusable before a request is replaced silently. Used by one thread at a time.
class HttpSession {
public:
    /// Makes the connected stream for a connection; called again for every reconnect.
    using Connector = std::function<std::unique_ptr<ByteStream>(Deadline)>;

    explicit HttpSession(const Limits& limits) : limits_(limits) {}

    /// Connects. `host` and `port` are what the Host field says. Throws what the connector throws, but for
    /// TimedOut, which becomes CannotConnect; the session then stays as unconnected as it was.
    void connect(Connector connector, const std::string& host, std::uint32_t port,
                 BasicAuthentication authentication, Deadline deadline);

    /// Closes the connection and forgets server and credentials. Harmless when not connected.
    void disconnect();

    /// There is a connection, as far as is known.
    bool isConnected() const { return connection_ != nullptr; }
    /// There is a server to talk to: connected, or to be reconnected by the next request.
    bool isOpen() const { return isConnected() || reconnect_; }

    /// Sends a request and returns the answer, whatever its status. Throws WireError: CannotConnect and the
    /// connector's other kinds when a reconnect failed, TimedOut, Closed, BadHttp. After each of them the
    /// next call reconnects. Must not be called unless isOpen().
    HttpResponse call(const CimRequest& request, Deadline deadline);

private:
    void ensureConnected(Deadline deadline);
    std::unique_ptr<HttpConnection> open(const Connector& connector, Deadline deadline) const;
    HttpResponse exchange(const CimRequest& request, Deadline deadline);
    Secret format(const CimRequest& request) const;
    void drop();

    Limits limits_;
    Connector connector_;
    std::string hostField_;
    BasicAuthentication authentication_;
    std::unique_ptr<HttpConnection> connection_;
    bool reconnect_ = false;
};

}  // namespace cimxml
