#include "cimxml/wire/TcpStream.h"

#include <algorithm>
#include <boost/asio/buffer.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <vector>

#if defined(_WIN32)
#include <mstcpip.h>
#else
#include <netinet/tcp.h>
#endif

#include "cimxml/wire/Silence.h"
#include "cimxml/wire/SocketWait.h"
#include "cimxml/wire/WireError.h"

namespace cimxml {

namespace asio = boost::asio;
using asio::ip::tcp;
using boost::system::error_code;

class TcpStream::Impl {
public:
    void open(const tcp::endpoint& peer, error_code& error) {
        error_code ignored;
        socket.close(ignored);
        socket.open(peer.protocol(), error);
        if (!error) {
            socket.set_option(tcp::no_delay(true), ignored);
        }
    }

    /// Connects, asynchronously for the deadline's sake. When that passes first, the socket is closed and
    /// TimedOut thrown.
    error_code connect(const tcp::endpoint& peer, Deadline deadline) {
        error_code outcome;
        bool done = false;
        socket.async_connect(peer, [&](error_code error) {
            outcome = error;
            done = true;
        });
        context.restart();
        context.run_for(deadline.remaining());
        if (!done) {
            error_code ignored;
            socket.close(ignored);
            context.restart();
            context.run();  // ends what refers to this call
            requireTime(deadline);
        }
        return outcome;
    }

    /// From here on no call waits in the socket itself. Where that is set once for a connection, what arrives
    /// is acknowledged at once.
    void prepare(error_code& error) {
        socket.non_blocking(true, error);
#if defined(SIO_TCP_SET_ACK_FREQUENCY)
        DWORD frequency = 1;
        DWORD unused = 0;
        WSAIoctl(socket.native_handle(), SIO_TCP_SET_ACK_FREQUENCY, &frequency, sizeof frequency, nullptr, 0,
                 &unused, nullptr, nullptr);
#endif
    }

    /// Has what arrived, and what comes next, acknowledged at once. A server that sends an answer in several
    /// pieces, each held back until the one before is acknowledged (RFC 896), would wait for an
    /// acknowledgement that the system delays, for 40 ms and more, in case that there is something to send
    /// along. Linux goes back to delaying by itself.
    void acknowledgeAtOnce() {
#if defined(TCP_QUICKACK)
        error_code ignored;
        socket.set_option(asio::detail::socket_option::boolean<IPPROTO_TCP, TCP_QUICKACK>(true), ignored);
#endif
    }

    asio::io_context context{1};
    tcp::socket socket{context};
    bool isWithinAnswer = false;  ///< Something was read since the last write.
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

std::unique_ptr<TcpStream> TcpStream::connect(const std::string& host, std::uint32_t port, Deadline deadline,
                                              std::chrono::milliseconds silence) {
    auto impl = makeImpl<Impl>();
    WireError failure(WireError::Kind::CannotConnect, host + ": no address");
    for (const tcp::endpoint& peer : resolve(impl->context, host, port)) {
        error_code error;
        impl->open(peer, error);
        if (error) {
            failure = WireError(WireError::Kind::NoSocket, error.message());
            continue;
        }
        try {
            endureSilence("TCP connection", silence, deadline,
                          [&](Deadline until) { error = impl->connect(peer, until); });
        } catch (const WireError& silent) {
            if (silent.kind() != WireError::Kind::Silent) {
                throw;
            }
            failure = silent;
            continue;
        }
        if (!error) {
            impl->prepare(error);
        }
        if (!error) {
            return std::unique_ptr<TcpStream>(new TcpStream(std::move(impl)));
        }
        failure = WireError(WireError::Kind::CannotConnect, error.message());
    }
    throw failure;
}

void TcpStream::write(std::string_view bytes, Deadline deadline) {
    // A system that takes however much it is given at a time would never let the deadline pass.
    constexpr std::size_t mostAtATime = 64U * 1024U;
    impl_->isWithinAnswer = false;
    while (!bytes.empty()) {
        error_code error;
        const std::size_t size = std::min(bytes.size(), mostAtATime);
        bytes.remove_prefix(impl_->socket.write_some(asio::buffer(bytes.data(), size), error));
        if (error == asio::error::would_block) {
            waitFor(impl_->socket, tcp::socket::wait_write, deadline);
        } else if (error) {
            throw WireError(WireError::Kind::Closed, error.message());
        }
    }
}

std::size_t TcpStream::read(char* buffer, std::size_t size, Deadline deadline) {
    // Where an answer has begun, more of it is mostly there; else there is nothing to look for yet.
    if (impl_->isWithinAnswer) {
        requireTime(deadline);
    } else {
        waitFor(impl_->socket, tcp::socket::wait_read, deadline);
    }
    std::optional<std::size_t> received;
    while (!(received = readAvailable(buffer, size))) {
        impl_->acknowledgeAtOnce();
        waitFor(impl_->socket, tcp::socket::wait_read, deadline);
    }
    impl_->isWithinAnswer = true;
    return *received;
}

std::optional<std::size_t> TcpStream::readAvailable(char* buffer, std::size_t size) {
    error_code error;
    const std::size_t received = impl_->socket.read_some(asio::buffer(buffer, size), error);
    if (error == asio::error::would_block) {
        return std::nullopt;
    }
    return error ? 0 : received;
}

}  // namespace cimxml
