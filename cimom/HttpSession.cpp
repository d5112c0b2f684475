#include "cimom/HttpSession.h"

#include <algorithm>
#include <array>
#include <boost/asio/buffer.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/asio/write.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/read.hpp>
#include <boost/beast/http/string_body.hpp>
#include <boost/beast/ssl/ssl_stream.hpp>
#include <chrono>
#include <optional>
#include <string_view>
#include <type_traits>
#include <vector>

#include "cimom/Delivery.h"
#include "cimom/Text.h"

namespace cimom {
namespace {

namespace net = boost::asio;
namespace beast = boost::beast;
namespace http = beast::http;
using boost::system::error_code;
using PlainStream = beast::tcp_stream;
using TlsStream = beast::ssl_stream<beast::tcp_stream>;

constexpr std::size_t kMaxHeadBytes = 64 * 1024;
constexpr std::size_t kReadBytes = 8 * 1024;
constexpr std::chrono::minutes kLongestWait{10};
constexpr std::chrono::seconds kLongestFarewell{2};

PlainStream makeStream(net::ip::tcp::socket socket, net::ssl::context*, PlainStream*) {
    return PlainStream(std::move(socket));
}

TlsStream makeStream(net::ip::tcp::socket socket, net::ssl::context* tls, TlsStream*) {
    return TlsStream(PlainStream(std::move(socket)), *tls);
}

/// Whether a body broke the rules of HTTP, rather than the connection broke.
bool isSyntaxError(error_code error) {
    static const auto& category = http::make_error_code(http::error::bad_chunk).category();
    return error.category() == category && error != http::error::partial_message &&
           error != http::error::end_of_stream;
}

template <typename Stream>
class Session final : public HttpSession, public std::enable_shared_from_this<Session<Stream>> {
public:
    Session(net::ip::tcp::socket socket, net::ssl::context* tls,
            std::shared_ptr<const SessionContext> context)
        : stream_(makeStream(std::move(socket), tls, static_cast<Stream*>(nullptr))),
          timer_(stream_.get_executor()),
          buffer_(kMaxHeadBytes),
          context_(std::move(context)) {}

    void start() override {
        if constexpr (std::is_same_v<Stream, TlsStream>) {
            expectWithin(kLongestWait);
            stream_.async_handshake(net::ssl::stream_base::server,
                                    [self = this->shared_from_this()](error_code error) {
                                        if (!error) {
                                            self->readHead();
                                        }
                                    });
        } else {
            readHead();
        }
    }

    void close() override {
        timer_.cancel();
        beast::get_lowest_layer(stream_).close();
    }

private:
    template <typename Duration>
    void expectWithin(Duration duration) {
        beast::get_lowest_layer(stream_).expires_after(duration);
    }

    void readHead() {
        request_ = HttpRequest();
        expectWithin(kLongestWait);
        readMoreOfHead(0);
    }

    /// Goes on reading until the empty line is there that ends a head; it is not among the first
    /// `searched` bytes. The next request's bytes may already be in the buffer.
    void readMoreOfHead(std::size_t searched) {
        constexpr std::string_view kEnd = "\r\n\r\n";
        const auto data = buffer_.data();
        const std::string_view text(static_cast<const char*>(data.data()), data.size());
        const auto end = text.find(kEnd, searched);
        if (end != std::string_view::npos) {
            parseHead(end + kEnd.size());
        } else if (text.size() >= kMaxHeadBytes) {
            refuse(431, "Request Header Fields Too Large");
        } else {
            readIntoBuffer(text.size() < kEnd.size() ? 0 : text.size() - kEnd.size() + 1);
        }
    }

    void readIntoBuffer(std::size_t searched) {
        stream_.async_read_some(
            buffer_.prepare(std::min(kReadBytes, kMaxHeadBytes - buffer_.size())),
            [self = this->shared_from_this(), searched](error_code error, std::size_t size) {
                if (!error) {
                    self->buffer_.commit(size);
                    self->readMoreOfHead(searched);
                }
            });
    }

    void parseHead(std::size_t size) {
        request_.head.assign(static_cast<const char*>(buffer_.data().data()), size - 2);
        parser_.emplace();
        parser_->header_limit(kMaxHeadBytes);
        parser_->body_limit(context_->endpoint.maxBodyBytes);
        error_code error;
        buffer_.consume(parser_->put(net::buffer(buffer_.data(), size), error));
        if (error == http::error::body_limit) {
            refuse(413, "Payload Too Large");
        } else if (error || !parser_->is_header_done()) {
            refuse(400, "Bad Request");
        } else if (sameName(parser_->get()[http::field::expect], "100-continue")) {
            sendContinue();
        } else {
            readBody();
        }
    }

    void sendContinue() {
        static constexpr std::string_view kContinue = "HTTP/1.1 100 Continue\r\n\r\n";
        net::async_write(stream_, net::buffer(kContinue.data(), kContinue.size()),
                         [self = this->shared_from_this()](error_code error, std::size_t) {
                             if (!error) {
                                 self->readBody();
                             }
                         });
    }

    void readBody() {
        http::async_read(
            stream_, buffer_, *parser_,
            [self = this->shared_from_this()](error_code error, std::size_t) { self->onBody(error); });
    }

    void onBody(error_code error) {
        if (error == http::error::body_limit) {
            refuse(413, "Payload Too Large");
        } else if (isSyntaxError(error)) {
            refuse(400, "Bad Request");
        } else if (!error) {
            takeRequest();
            answer();
        }
    }

    void takeRequest() {
        auto& message = parser_->get();
        request_.method = std::string(message.method_string());
        request_.target = std::string(message.target());
        request_.version = message.version();
        for (const auto& field : message) {
            request_.fields.emplace_back(std::string(field.name_string()), std::string(field.value()));
        }
        request_.body = std::move(message.body());
    }

    /// Whether the connection stays open after this request's answer, as far as the client knows.
    bool keepsAlive() const { return parser_->get().keep_alive(); }

    Framing framing() const {
        const bool chunked = request_.version >= 11 && request_.fieldHas("TE", "trailers");
        return {chunked ? context_->endpoint.chunkBytes : 0, keepsAlive()};
    }

    void answer() {
        Handled handled = context_->handler.handle(request_);
        SeenRequest seen = describe(handled.answer);
        delivery_ = makeDelivery(std::move(handled.answer), framing(), handled.fault);
        seen.status = delivery_.status;
        context_->log.add(std::move(seen));
        ++answers_;
        const std::size_t most = context_->endpoint.requestsPerConnection;
        if (delivery_.after == Delivery::After::Continue && most != 0 && answers_ >= most) {
            delivery_.after = Delivery::After::Close;
        }
        deliverInTime();
    }

    SeenRequest describe(const HttpAnswer& answer) {
        SeenRequest seen;
        seen.address = context_->endpoint.address;
        seen.port = context_->endpoint.port;
        seen.head = std::move(request_.head);
        seen.body = std::move(request_.body);
        seen.operation = answer.operation;
        seen.className = answer.className;
        return seen;
    }

    /// Answers a request that could not be read, and closes.
    void refuse(int status, const std::string& reason) {
        delivery_ = makeDelivery(plainAnswer(status, reason), {0, false}, std::nullopt);
        SeenRequest seen = describe(HttpAnswer());
        seen.status = status;
        context_->log.add(std::move(seen));
        send();
    }

    void deliverInTime() {
        if (delivery_.delay.count() == 0) {
            send();
            return;
        }
        timer_.expires_after(delivery_.delay);
        timer_.async_wait([self = this->shared_from_this()](error_code error) {
            if (!error) {
                self->send();
            }
        });
    }

    void send() {
        expectWithin(kLongestWait);
        // A vector, not an array: when an array of two has its first buffer sent, the next write starts with
        // an empty buffer, which Beast's TLS stream takes for the end of a long body.
        const std::vector<net::const_buffer> bytes{net::buffer(delivery_.head), net::buffer(delivery_.body)};
        net::async_write(stream_, bytes, [self = this->shared_from_this()](error_code error, std::size_t) {
            if (!error) {
                self->onSent();
            }
        });
    }

    void onSent() {
        delivery_.body = std::string();
        switch (delivery_.after) {
            case Delivery::After::Continue:
                readHead();
                break;
            case Delivery::After::Close:
                sayGoodbye();
                break;
            case Delivery::After::Cut:
                drain();
                break;
            case Delivery::After::Hold:
                hold();
                break;
        }
    }

    void sayGoodbye() {
        if constexpr (std::is_same_v<Stream, TlsStream>) {
            expectWithin(kLongestFarewell);
            stream_.async_shutdown([self = this->shared_from_this()](error_code) { self->drain(); });
        } else {
            drain();
        }
    }

    /// Closes our side and reads what the client still sends: closing with bytes unread would reset the
    /// connection and could take away the answer before the client has read it.
    void drain() {
        error_code ignored;
        beast::get_lowest_layer(stream_).socket().shutdown(net::ip::tcp::socket::shutdown_send, ignored);
        expectWithin(kLongestFarewell);
        discard();
    }

    void hold() {
        beast::get_lowest_layer(stream_).expires_never();
        discard();
    }

    /// Reads bytes away, below TLS, until the client closes or time is up.
    void discard() {
        beast::get_lowest_layer(stream_).async_read_some(
            net::buffer(discarded_), [self = this->shared_from_this()](error_code error, std::size_t) {
                if (!error) {
                    self->discard();
                }
            });
    }

    Stream stream_;
    net::steady_timer timer_;
    beast::flat_buffer buffer_;
    std::shared_ptr<const SessionContext> context_;
    std::optional<http::request_parser<http::string_body>> parser_;
    HttpRequest request_;
    Delivery delivery_;
    std::size_t answers_ = 0;
    std::array<char, 4096> discarded_{};
};

}  // namespace

std::shared_ptr<HttpSession> makeHttpSession(net::ip::tcp::socket socket, net::ssl::context* tls,
                                             std::shared_ptr<const SessionContext> context) {
    error_code ignored;
    socket.set_option(net::ip::tcp::no_delay(true), ignored);
    if (tls != nullptr) {
        return std::make_shared<Session<TlsStream>>(std::move(socket), tls, std::move(context));
    }
    return std::make_shared<Session<PlainStream>>(std::move(socket), tls, std::move(context));
}

}  // namespace cimom
