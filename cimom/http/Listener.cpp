#include "cimom/http/Listener.h"

#include <algorithm>
#include <boost/asio/ip/address.hpp>
#include <boost/asio/ip/v6_only.hpp>
#include <stdexcept>

#include "cimom/http/TlsContext.h"

namespace cimom {
namespace {

namespace net = boost::asio;
using boost::system::error_code;
using net::ip::tcp;

[[noreturn]] void cannotListen(const Endpoint& endpoint, const std::string& why) {
    throw std::runtime_error("cannot listen on " + endpoint.address + " port " +
                             std::to_string(endpoint.port) + ": " + why);
}

/// A port is free again as soon as its server is gone, though some of its connections may still be ending. So
/// it is on Windows without more; there the option would let a second server take the port of a first.
void takePortAtOnce([[maybe_unused]] tcp::acceptor& acceptor, [[maybe_unused]] error_code& error) {
#if !defined(_WIN32)
    acceptor.set_option(tcp::acceptor::reuse_address(true), error);
#endif
}

void bind(tcp::acceptor& acceptor, const Endpoint& endpoint) {
    error_code error;
    const auto address = net::ip::make_address(endpoint.address, error);
    if (error) {
        cannotListen(endpoint, "not an IP address");
    }
    const tcp::endpoint local(address, endpoint.port);
    acceptor.open(local.protocol(), error);
    if (!error) {
        takePortAtOnce(acceptor, error);
    }
    if (!error && address.is_v6()) {
        acceptor.set_option(net::ip::v6_only(true), error);
    }
    if (!error) {
        acceptor.bind(local, error);
    }
    if (!error) {
        acceptor.listen(tcp::acceptor::max_listen_connections, error);
    }
    if (error) {
        cannotListen(endpoint, error.message());
    }
}

}  // namespace

Listener::Listener(net::io_context& io, Endpoint endpoint, FaultPlan& faults, RequestLog& log)
    : acceptor_(io), pause_(io), log_(log) {
    if (!endpoint.repository) {
        cannotListen(endpoint, "the endpoint has no repository");
    }
    bind(acceptor_, endpoint);
    endpoint.port = acceptor_.local_endpoint().port();
    if (endpoint.tls) {
        tls_ = makeTlsContext(endpoint.onlyTls10);
    }
    context_ =
        std::make_shared<SessionContext>(SessionContext{endpoint, RequestHandler(endpoint, faults), log});
}

void Listener::startAccepting() {
    acceptor_.async_accept([self = shared_from_this()](error_code error, tcp::socket socket) {
        self->onAccept(error, std::move(socket));
    });
}

void Listener::onAccept(error_code error, tcp::socket socket) {
    if (!acceptor_.is_open()) {
        return;
    }
    if (error) {
        acceptLater();
        return;
    }
    log_.countConnection();
    sessions_.erase(
        std::remove_if(sessions_.begin(), sessions_.end(),
                       [](const std::weak_ptr<HttpSession>& session) { return session.expired(); }),
        sessions_.end());
    if (sessions_.size() < endpoint().maxConnections) {
        const auto session = makeHttpSession(std::move(socket), tls_ ? &*tls_ : nullptr, context_);
        sessions_.push_back(session);
        session->start();
    } else {
        socket.close(error);
    }
    startAccepting();
}

/// A process out of descriptors would otherwise spin here.
void Listener::acceptLater() {
    constexpr std::chrono::milliseconds kPause{100};
    pause_.expires_after(kPause);
    pause_.async_wait([self = shared_from_this()](error_code error) {
        if (!error && self->acceptor_.is_open()) {
            self->startAccepting();
        }
    });
}

void Listener::close() {
    error_code ignored;
    acceptor_.close(ignored);
    pause_.cancel();
    for (const std::weak_ptr<HttpSession>& weak : sessions_) {
        if (const auto session = weak.lock()) {
            session->close();
        }
    }
}

}  // namespace cimom
