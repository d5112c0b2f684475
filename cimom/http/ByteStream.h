#pragma once

#include <boost/asio/buffer.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/ssl/context.hpp>
#include <boost/system/error_code.hpp>
#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>

namespace cimom {

/// The bytes of one connection, with or without TLS. Lives on the thread of its socket's I/O context; each
/// operation calls `Done` there when it has ended. One read and one write at a time. The buffers, and the
/// stream itself, must outlive an operation that is under way: `Done` may hold what owns them.
class ByteStream {
public:
    using Done = std::function<void(boost::system::error_code error, std::size_t size)>;

    virtual ~ByteStream() = default;

    /// What is under way and what comes ends with an error when it takes longer than this.
    virtual void expectWithin(std::chrono::steady_clock::duration duration) = 0;
    virtual void expectNothing() = 0;  ///< As long as it takes.

    virtual void handshake(Done done) = 0;  ///< `size` is 0. Ends at once without TLS.
    virtual void readSome(boost::asio::mutable_buffer target, Done done) = 0;
    virtual void write(boost::asio::const_buffer source, Done done) = 0;  ///< All of it.
    virtual void sayGoodbye(Done done) = 0;  ///< TLS' close_notify; `size` is 0. Ends at once without TLS.

    /// Reads bytes below TLS.
    virtual void readRaw(boost::asio::mutable_buffer target, Done done) = 0;
    /// No more bytes to the client.
    virtual void finishSending() = 0;
    /// Ends the connection and what is under way.
    virtual void close() = 0;
};

/// Over an accepted socket; with TLS when `tls` is not null. `tls` must outlive the stream.
std::unique_ptr<ByteStream> makeByteStream(boost::asio::ip::tcp::socket socket,
                                           boost::asio::ssl::context* tls);

}  // namespace cimom
