#include "cimxml/wire/TcpStream.h"

#include <boost/asio/buffer.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/write.hpp>
#include <vector>

#if defined(_WIN32)
#include <mstcpip.h>
#else
#include <netinet/tcp.h>
#endif

#include "cimxml/wire/WireError.h"

namespace cimxml {

namespace asio = boost::asio;
using asio::ip::tcp;
using boost::system::error_code;

class TcpStream::Impl {
public:
    struct Outcome {
        error_code error;
        std::size_t bytes = 0;
    };

    void open(const tcp::endpoint& peer, error_code& error) {
        error_code ignored;
        socket.close(ignored);
        socket.open(peer.protocol(), error);
        if (!error) {
            socket.set_option(tcp::no_delay(true), ignored);
        }
    }

    /// Has what arrives acknowledged at once. A server that sends an answer in several pieces, each held back
    /// until the one before is acknowledged (RFC 896), would wait for an acknowledgement that the system
    /// delays, for 40 ms and more, in case that there is something to send along.
    void acknowledgeAtOnce() {
#if defined(TCP_QUICKACK)
        // Linux goes back to delaying by itself.
        error_code ignored;
        socket.set_option(asio::detail::socket_option::boolean<IPPROTO_TCP, TCP_QUICKACK>(true), ignored);
#elif defined(SIO_TCP_SET_ACK_FREQUENCY)
        DWORD frequency = 1;
        DWORD unused = 0;
        WSAIoctl(socket.native_handle(), SIO_TCP_SET_ACK_FREQUENCY, &frequency, sizeof frequency, nullptr, 0,
                 &unused, nullptr, nullptr);
#endif
    }

    Outcome connect(const tcp::endpoint& peer, Deadline deadline) {
        return run(deadline, [&](Outcome& outcome, bool& done) {
            socket.async_connect(peer, [&](error_code error) {
                outcome.error = error;
                done = true;
            });
        });
    }

    /// Starts one operation and runs it to its end. When the deadline passes first, the socket is closed,
    /// which ends the operation, and TimedOut thrown: its buffers must not outlive this call.
    template <typename Start>
    Outcome run(Deadline deadline, Start start) {
        Outcome outcome;
        bool done = false;
        start(outcome, done);
        context.restart();
        context.run_for(deadline.remaining());
        if (!done) {
            error_code ignored;
            // A close alone leaves what is being sent alone on some Windows systems, and the last run waits.
            socket.cancel(ignored);
            socket.close(ignored);
            context.restart();
            context.run();
            throw WireError(WireError::Kind::TimedOut, "connection timed out");
        }
        return outcome;
    }

    asio::io_context context{1};
    tcp::socket socket{context};
};

namespace {

std::string withoutBrackets(const std::string& host) {
    const bool bracketed = host.size() > 2 && host.front() == '[' && host.back() == ']';
    return bracketed ? host.substr(1, host.size() - 2) : host;
}

std::vector<tcp::endpoint> resolve(asio::io_context& context, const std::string& host, std::uint32_t port) {
    const std::string where = host + ":" + std::to_string(port);
    if (port > 65535) {
        throw WireError(WireError::Kind::UnknownHost, where + ": no such port");
    }
    const auto portNumber = static_cast<std::uint16_t>(port);
    error_code error;
    const auto literal = asio::ip::make_address(withoutBrackets(host), error);
    if (!error) {
        return {tcp::endpoint(literal, portNumber)};
    }
    tcp::resolver resolver(context);
    const auto found =
        resolver.resolve(withoutBrackets(host), std::to_string(port), tcp::resolver::numeric_service, error);
    if (error || found.empty()) {
        throw WireError(WireError::Kind::UnknownHost, where + ": " + error.message());
    }
    return {found.begin(), found.end()};
}

// The event loop needs descriptors of its own, and the process may have none left.
template <class TImpl>
std::unique_ptr<TImpl> makeImpl() {
    try {
        return std::make_unique<TImpl>();
    } catch (const boost::system::system_error& error) {
        throw WireError(WireError::Kind::NoSocket, error.what());
    }
}

}  // namespace

TcpStream::TcpStream(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}

TcpStream::~TcpStream() = default;

std::unique_ptr<TcpStream> TcpStream::connect(const std::string& host, std::uint32_t port,
                                              Deadline deadline) {
    auto impl = makeImpl<Impl>();
    WireError failure(WireError::Kind::CannotConnect, host + ": no address");
    for (const tcp::endpoint& peer : resolve(impl->context, host, port)) {
        error_code error;
        impl->open(peer, error);
        if (error) {
            failure = WireError(WireError::Kind::NoSocket, error.message());
            continue;
        }
        error = impl->connect(peer, deadline).error;
        if (!error) {
            return std::unique_ptr<TcpStream>(new TcpStream(std::move(impl)));
        }
        failure = WireError(WireError::Kind::CannotConnect, error.message());
    }
    throw failure;
}

void TcpStream::write(std::string_view bytes, Deadline deadline) {
    const auto outcome = impl_->run(deadline, [&](Impl::Outcome& result, bool& done) {
        asio::async_write(impl_->socket, asio::buffer(bytes.data(), bytes.size()),
                          [&](error_code error, std::size_t sent) {
                              result = {error, sent};
                              done = true;
                          });
    });
    if (outcome.error) {
        throw WireError(WireError::Kind::Closed, outcome.error.message());
    }
}

std::size_t TcpStream::read(char* buffer, std::size_t size, Deadline deadline) {
    impl_->acknowledgeAtOnce();
    const auto outcome = impl_->run(deadline, [&](Impl::Outcome& result, bool& done) {
        impl_->socket.async_read_some(asio::buffer(buffer, size),
                                      [&](error_code error, std::size_t received) {
                                          result = {error, received};
                                          done = true;
                                      });
    });
    return outcome.error ? 0 : outcome.bytes;
}

std::optional<std::size_t> TcpStream::readAvailable(char* buffer, std::size_t size) {
    error_code error;
    impl_->socket.non_blocking(true, error);
    const std::size_t received = impl_->socket.read_some(asio::buffer(buffer, size), error);
    if (error == asio::error::would_block) {
        return std::nullopt;
    }
    return error ? 0 : received;
}

}  // namespace cimxml
