#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/ssl/context.hpp>
#include <boost/asio/steady_timer.hpp>
#include <memory>
#include <optional>
#include <vector>

#include "cimom/http/HttpSession.h"

namespace cimom {

/// One listening socket and the connections accepted from it. Bound in the constructor on any thread; all
/// else on the thread of its I/O context.
class Listener : public std::enable_shared_from_this<Listener> {
public:
    /// Throws std::runtime_error that names address and port when it cannot be bound. `faults` and `log`
    /// are borrowed and must outlive this.
    Listener(boost::asio::io_context& io, Endpoint endpoint, FaultPlan& faults, RequestLog& log);

    const Endpoint& endpoint() const { return context_->endpoint; }

    void startAccepting();

    /// Stops accepting and closes all connections.
    void close();

private:
    void onAccept(boost::system::error_code error, boost::asio::ip::tcp::socket socket);
    void acceptLater();

    boost::asio::ip::tcp::acceptor acceptor_;
    boost::asio::steady_timer pause_;
    std::optional<boost::asio::ssl::context> tls_;
    std::shared_ptr<const SessionContext> context_;
    RequestLog& log_;
    std::vector<std::weak_ptr<HttpSession>> sessions_;
};

}  // namespace cimom
