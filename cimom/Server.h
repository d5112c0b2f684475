#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cimom/Fault.h"
#include "cimom/LocalOnlyRules.h"
#include "cimom/Repository.h"

namespace cimom {

/// User name and password that an endpoint asks for with Basic authentication (RFC 7617).
struct Credentials {
    std::string user;
    std::string password;
};

/// One listening socket and the data that it serves.
struct Endpoint {
    std::string address = "127.0.0.1";       ///< IPv4 or IPv6 address literal to bind to.
    std::uint16_t port = 0;                  ///< TCP port; 0 takes any free one.
    bool tls = false;                        ///< HTTPS with the server's self-signed certificate.
    bool onlyTls10 = false;                  ///< Offer TLS 1.0 and its ciphers only, as old controllers do.
    std::shared_ptr<Repository> repository;  ///< The node's data; shared between endpoints of one node.
    std::optional<Credentials> credentials;  ///< Absent: no authentication.
    LocalOnlyRules localOnly;                ///< Which family of servers this one is like.
    /// Chunked answers with trailers, in chunks of at most that many bytes, to requests that say
    /// "TE: trailers"; 0: always Content-Length.
    std::size_t chunkBytes = 0;
    /// The server closes a connection, unannounced, after that many answers; 0: it never does.
    std::size_t requestsPerConnection = 0;
    /// Largest request body in bytes; a larger one is answered with 413. Default 16 MiB.
    std::size_t maxBodyBytes = std::size_t{16} << 20;
};

/// One HTTP request as it arrived, for tests that look at what went over the wire.
struct SeenRequest {
    std::string address;     ///< Address of the endpoint that received it.
    std::uint16_t port = 0;  ///< Port of that endpoint.
    std::string head;        ///< Request line and header fields as sent.
    std::string body;        ///< Body, transfer coding removed.
    std::string operation;   ///< CIM method called, e.g. "GetClass"; empty when it could not be read.
    std::string className;   ///< Class the operation names, or that of the path it names; may be empty.
    int status = 0;          ///< HTTP status answered; 0 when a fault suppressed the answer.
};

/// An embedded CIM server (CIM-XML over HTTP, DSP0200 and DSP0201).
///
/// Serves any number of endpoints from one background thread of its own. The public operations may be
/// called from any one thread at a time, also while the server runs.
class Server {
public:
    Server();
    ~Server();  ///< Stops the server and closes every connection.
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    /// Binds an endpoint and returns its port. Throws std::runtime_error that names address and port when
    /// the socket cannot be bound. Endpoints may be added while the server runs.
    std::uint16_t listen(const Endpoint& endpoint);

    /// Accepts connections from now on, on a background thread.
    void start();

    /// Stops accepting, closes every connection and joins the thread. Harmless when not running.
    void stop();

    /// Closes an endpoint and its connections, as a machine node that dies does.
    void close(const std::string& address, std::uint16_t port);

    /// Adds a fault that applies to matching requests (see Fault). Faults are tried in the order added.
    void inject(const Fault& fault);
    void clearFaults();

    /// Every request seen since the start or the last clearRequests, in order of arrival. A copy.
    std::vector<SeenRequest> requests() const;
    void clearRequests();

    /// Whether requests are kept for requests(); on at first. A server that runs for long turns it off.
    void keepRequests(bool on);

    /// Calls `observer` with each request, on the server's thread, before the answer is sent; it must not
    /// call back into the server. An empty function ends that.
    void observe(std::function<void(const SeenRequest&)> observer);

    /// Number of TCP connections accepted since the start.
    std::size_t connectionsAccepted() const;

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace cimom
