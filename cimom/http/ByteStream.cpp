#include "cimom/http/ByteStream.h"

#include <boost/asio/ssl/stream.hpp>
#include <boost/beast/core/stream_traits.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <utility>

namespace cimom {
namespace {

namespace net = boost::asio;
namespace beast = boost::beast;
using boost::system::error_code;

/// What both kinds have: operations on the socket, and reading and writing through `Stream`.
template <typename Stream>
class StreamOver : public ByteStream {
public:
    template <typename... Arguments>
    explicit StreamOver(Arguments&&... arguments) : stream_(std::forward<Arguments>(arguments)...) {}

    void expectWithin(std::chrono::steady_clock::duration duration) override {
        lowest().expires_after(duration);
    }
    void expectNothing() override { lowest().expires_never(); }

    void readSome(net::mutable_buffer target, Done done) override {
        stream_.async_read_some(target, std::move(done));
    }
    void write(net::const_buffer source, Done done) override {
        stream_.async_write_some(source,
                                 [this, source, done = std::move(done)](error_code error, std::size_t size) {
                                     if (error || size == source.size()) {
                                         done(error, size);
                                     } else {
                                         write(source + size, done);
                                     }
                                 });
    }
    void readRaw(net::mutable_buffer target, Done done) override {
        lowest().async_read_some(target, std::move(done));
    }
    void finishSending() override {
        error_code ignored;
        lowest().socket().shutdown(net::ip::tcp::socket::shutdown_send, ignored);
    }
    void close() override { lowest().close(); }

protected:
    Stream& stream() { return stream_; }

private:
    beast::tcp_stream& lowest() { return beast::get_lowest_layer(stream_); }

    Stream stream_;
};

class PlainStream final : public StreamOver<beast::tcp_stream> {
public:
    using StreamOver::StreamOver;

    void handshake(Done done) override { done(error_code(), 0); }
    void sayGoodbye(Done done) override { done(error_code(), 0); }
};

class TlsStream final : public StreamOver<net::ssl::stream<beast::tcp_stream>> {
public:
    using StreamOver::StreamOver;

    void handshake(Done done) override {
        stream().async_handshake(net::ssl::stream_base::server,
                                 [done = std::move(done)](error_code error) { done(error, 0); });
    }
    void sayGoodbye(Done done) override {
        stream().async_shutdown([done = std::move(done)](error_code error) { done(error, 0); });
    }
};

}  // namespace

std::unique_ptr<ByteStream> makeByteStream(net::ip::tcp::socket socket, net::ssl::context* tls) {
    error_code ignored;
    socket.set_option(net::ip::tcp::no_delay(true), ignored);
    if (tls != nullptr) {
        return std::make_unique<TlsStream>(std::move(socket), *tls);
    }
    return std::make_unique<PlainStream>(std::move(socket));
}

}  // namespace cimom
