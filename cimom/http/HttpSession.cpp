#include "cimom/http/HttpSession.h"

#include <algorithm>
#include <array>
#include <boost/asio/buffer.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/http/error.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/string_body.hpp>
#include <chrono>
#include <optional>
#include <string_view>
#include <utility>

#include "cimom/common/Text.h"
#include "cimom/http/ByteStream.h"
#include "cimom/http/Delivery.h"

namespace cimom {
namespace {

namespace net = boost::asio;
namespace beast = boost::beast;
namespace http = beast::http;
using boost::system::error_code;

constexpr std::size_t kMaxHeadBytes = 64 * 1024;
constexpr std::size_t kReadBytes = 8 * 1024;
constexpr std::chrono::minutes kLongestWait{10};
constexpr std::chrono::seconds kLongestFarewell{2};

class Session final : public HttpSession, public std::enable_shared_from_this<Session> {
public:
    Session(const net::any_io_executor& executor, std::unique_ptr<ByteStream> stream,
            std::shared_ptr<const SessionContext> context)
        : stream_(std::move(stream)),
          timer_(executor),
          buffer_(kMaxHeadBytes),
          context_(std::move(context)) {}

    void start() override {
        stream_->expectWithin(context_->endpoint.idleLimit);
        stream_->handshake(then(&Session::readHead));
    }

    void close() override {
        timer_.cancel();
        stream_->close();
    }

private:
    using Step = void (Session::*)();
    using Clock = std::chrono::steady_clock;

    /// Keeps the session alive meanwhile, and goes on with `next` unless there was an error.
    ByteStream::Done then(Step next) {
        return [self = shared_from_this(), next](error_code error, std::size_t) {
            if (!error) {
                (*self.*next)();
            }
        };
    }

    void readHead() {
        request_ = HttpRequest();
        searched_ = 0;
        latest_ = Clock::now() + kLongestWait;
        takeHead();
    }

    /// Goes on reading until the empty line is there that ends a head; it is not among the first `searched_`
    /// bytes. The next request's bytes may already be in the buffer.
    void takeHead() {
        constexpr std::string_view kEnd = "\r\n\r\n";
        const auto data = buffer_.data();
        const std::string_view text(static_cast<const char*>(data.data()), data.size());
        const auto end = text.find(kEnd, searched_);
        if (end != std::string_view::npos) {
            parseHead(end + kEnd.size());
        } else if (text.size() >= kMaxHeadBytes) {
            refuse(431, "Request Header Fields Too Large");
        } else {
            searched_ = text.size() < kEnd.size() ? 0 : text.size() - kEnd.size() + 1;
            readMore(&Session::takeHead);
        }
    }

    /// Reads into the buffer, which must not be full. Neither silence nor a trickle goes on for ever.
    void readMore(Step next) {
        stream_->expectWithin(
            std::min<Clock::duration>(context_->endpoint.idleLimit, latest_ - Clock::now()));
        stream_->readSome(buffer_.prepare(std::min(kReadBytes, kMaxHeadBytes - buffer_.size())),
                          [self = shared_from_this(), next](error_code error, std::size_t size) {
                              if (!error) {
                                  self->buffer_.commit(size);
                                  (*self.*next)();
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
            takeBody();
        }
    }

    void sendContinue() {
        static constexpr std::string_view kContinue = "HTTP/1.1 100 Continue\r\n\r\n";
        stream_->write(net::buffer(kContinue.data(), kContinue.size()), then(&Session::takeBody));
    }

    /// Feeds the parser until it has the whole body.
    void takeBody() {
        error_code error;
        while (!error && buffer_.size() > 0 && !parser_->is_done()) {
            buffer_.consume(parser_->put(buffer_.data(), error));
        }
        if (error == http::error::body_limit) {
            refuse(413, "Payload Too Large");
        } else if (parser_->is_done()) {
            takeRequest();
            answer();
        } else if ((error && error != http::error::need_more) || buffer_.size() >= kMaxHeadBytes) {
            refuse(400, "Bad Request");  // broken, or a line between chunks that does not end
        } else {
            readMore(&Session::takeBody);
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
        timer_.async_wait([self = shared_from_this()](error_code error) {
            if (!error) {
                self->send();
            }
        });
    }

    void send() {
        stream_->expectWithin(kLongestWait);
        delivery_.head += delivery_.body;  // one write, so that they travel together
        delivery_.body = std::string();
        stream_->write(net::buffer(delivery_.head), then(&Session::onSent));
    }

    void onSent() {
        delivery_.head = std::string();
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
        stream_->expectWithin(kLongestFarewell);
        stream_->sayGoodbye([self = shared_from_this()](error_code, std::size_t) { self->drain(); });
    }

    /// Closes our side and reads what the client still sends: closing with bytes unread would reset the
    /// connection and could take away the answer before the client has read it.
    void drain() {
        stream_->finishSending();
        stream_->expectWithin(kLongestFarewell);
        discard();
    }

    void hold() {
        stream_->expectNothing();
        discard();
    }

    /// Reads bytes away, below TLS, until the client closes or time is up.
    void discard() { stream_->readRaw(net::buffer(discarded_), then(&Session::discard)); }

    std::unique_ptr<ByteStream> stream_;
    net::steady_timer timer_;
    beast::flat_buffer buffer_;
    std::size_t searched_ = 0;
    Clock::time_point latest_;  // by then, a request must have come
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
    const net::any_io_executor executor = socket.get_executor();
    return std::make_shared<Session>(executor, makeByteStream(std::move(socket), tls), std::move(context));
}

}  // namespace cimom
