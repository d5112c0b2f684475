#pragma once

#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/ssl/context.hpp>
#include <memory>

#include "cimom/http/Endpoint.h"
#include "cimom/http/RequestHandler.h"
#include "cimom/http/RequestLog.h"

namespace cimom {

/// What all connections of one endpoint share. `log` is borrowed and must outlive them.
struct SessionContext {
    Endpoint endpoint;  ///< With the port that is really listened on.
    RequestHandler handler;
    RequestLog& log;
};

/// One connection, from its acceptance to its end. Lives as long as it has something under way; runs on the
/// thread of its socket's I/O context, on which its operations must be called.
class HttpSession {
public:
    virtual ~HttpSession() = default;

    virtual void start() = 0;

    /// Ends the connection at once.
    virtual void close() = 0;
};

/// A session over an accepted socket; with TLS when `tls` is not null. `tls` must outlive the session.
std::shared_ptr<HttpSession> makeHttpSession(boost::asio::ip::tcp::socket socket,
                                             boost::asio::ssl::context* tls,
                                             std::shared_ptr<const SessionContext> context);

}  // namespace cimom
