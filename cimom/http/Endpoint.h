#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "cimom/data/Repository.h"
#include "cimom/http/Credentials.h"
#include "cimom/operations/LocalOnlyRules.h"

namespace cimom {

/// One listening socket and the data that it serves.
struct Endpoint {
    std::string address = "127.0.0.1";       ///< IPv4 or IPv6 address literal to bind to.
    std::uint16_t port = 0;                  ///< TCP port; 0 takes any free one.
    bool tls = false;                        ///< HTTPS with the server's self-signed certificate.
    bool onlyTls10 = false;                  ///< Offer TLS 1.0 and its ciphers only, as old controllers do.
    std::shared_ptr<Repository> repository;  ///< The node's data; shared between endpoints of one node.
    std::optional<Credentials> credentials;  ///< Absent: no authentication.
    LocalOnlyRules localOnly;                ///< Which family of servers this one is like.
    /// Out-parameters that are null come as PARAMVALUEs without a value; else they are left out, since the
    /// client wbemcli does not survive them.
    bool sendNullOutputs = true;
    /// Chunked answers with trailers, in chunks of at most that many bytes, to requests that say
    /// "TE: trailers"; 0: always Content-Length.
    std::size_t chunkBytes = 0;
    /// The server closes a connection, unannounced, after that many answers; 0: it never does.
    std::size_t requestsPerConnection = 0;
    /// Largest request body in bytes; a larger one is answered with 413. Default 16 MiB.
    std::size_t maxBodyBytes = std::size_t{16} << 20;
    /// A connection on which nothing comes for that long is closed: before a request, within one, or within
    /// the TLS handshake, which has that long as a whole.
    std::chrono::milliseconds idleLimit{30000};
    /// Connections open at a time; a further one is closed as soon as it is accepted.
    std::size_t maxConnections = 512;
};

}  // namespace cimom
