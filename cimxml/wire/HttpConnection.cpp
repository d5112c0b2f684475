#include "cimxml/wire/HttpConnection.h"

#include <algorithm>
#include <boost/beast/core/buffers_range.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/http/error.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/optional.hpp>
#include <string>

#include "cimxml/wire/Ascii.h"
#include "cimxml/wire/WireError.h"

namespace cimxml {

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace http = boost::beast::http;
using boost::system::error_code;

namespace {

constexpr std::size_t readPieceSize = 64U * 1024U;

/// A body collected in a string. A length that the server announces is believed when some of the body has
/// arrived: until then, no more memory is taken than a lie may cost.
struct CollectedBody {
    using value_type = std::string;

    class reader {
    public:
        template <bool isRequest, class Fields>
        reader(http::header<isRequest, Fields>& /*header*/, value_type& body) : body_(body) {}

        void init(const boost::optional<std::uint64_t>& length, error_code& error) {
            constexpr std::uint64_t believed = 16U * 1024U * 1024U;
            announced_ = static_cast<std::size_t>(length.value_or(0));
            body_.reserve(std::min<std::size_t>(announced_, believed));
            error = {};
        }

        template <class Buffers>
        std::size_t put(const Buffers& buffers, error_code& error) {
            std::size_t taken = 0;
            for (const asio::const_buffer piece : beast::buffers_range_ref(buffers)) {
                if (body_.capacity() - body_.size() < piece.size() && body_.capacity() < announced_) {
                    body_.reserve(announced_);  // bounded by the limit on bodies
                }
                body_.append(static_cast<const char*>(piece.data()), piece.size());
                taken += piece.size();
            }
            error = {};
            return taken;
        }

        void finish(error_code& error) { error = {}; }

    private:
        value_type& body_;
        std::size_t announced_ = 0;
    };
};

using Parser = http::response_parser<CollectedBody>;

std::string describe(const error_code& error, const Limits& limits) {
    if (error == http::error::header_limit || error == http::error::buffer_overflow) {
        return "HTTP header of the answer exceeds " + std::to_string(limits.headerBytes) + " bytes.";
    }
    if (error == http::error::body_limit) {
        return "HTTP body of the answer exceeds " + std::to_string(limits.bodyBytes) + " bytes.";
    }
    return "Malformed HTTP response message: " + error.message() + ".";
}

/// The reason in a status line, "HTTP/1.1 404 Not Found".
std::string reasonIn(std::string_view statusLine) {
    const std::size_t code = statusLine.find(' ');
    const std::size_t reason = statusLine.find(' ', code == std::string_view::npos ? code : code + 1);
    return std::string(reason == std::string_view::npos ? std::string_view()
                                                        : trim(statusLine.substr(reason)));
}

/// No other coding than chunks was asked for, and a body in one would only look like broken XML.
void refuseCodings(const Parser& parser) {
    const auto& fields = parser.get().base();
    for (const http::field name : {http::field::transfer_encoding, http::field::content_encoding}) {
        const auto coding = fields.find(name);
        const bool isKnown = coding == fields.end() ||
                             (name == http::field::transfer_encoding && parser.chunked()) ||
                             equalNoCase(trim(coding->value()), "identity");
        if (!isKnown) {
            throw WireError(WireError::Kind::BadHttp, "Malformed HTTP response message: unknown " +
                                                          std::string(coding->name_string()) + ".");
        }
    }
}

HttpResponse take(Parser& parser, std::string_view statusLine, bool nothingLeft) {
    auto message = parser.release();
    HttpResponse response;
    response.status = message.result_int();
    // Beast would put the standard's words in place of an empty reason.
    response.reason = reasonIn(statusLine);
    response.keepAlive = nothingLeft && message.keep_alive();
    for (const auto& field : message.base()) {
        response.fields.emplace_back(std::string(field.name_string()), std::string(field.value()));
    }
    response.body = std::move(message.body());
    return response;
}

}  // namespace

class HttpConnection::Buffer : public beast::flat_buffer {
    using beast::flat_buffer::flat_buffer;
};

/// Receives the answers to one request.
class HttpConnection::Receiver {
public:
    Receiver(ByteStream& stream, const Limits& limits, Deadline deadline, Buffer& buffer)
        : stream_(stream), limits_(limits), deadline_(deadline), buffer_(buffer) {}

    HttpResponse receive() {
        for (;;) {
            HttpResponse response = receiveOne();
            if (response.status >= 200) {
                return response;
            }
        }
    }

private:
    HttpResponse receiveOne() {
        statusLine_.clear();
        Parser parser;
        parser.eager(true);
        parser.header_limit(static_cast<std::uint32_t>(limits_.headerBytes));
        parser.body_limit(limits_.bodyBytes);
        while (!parser.is_done()) {
            if (!parse(parser) && !readMore()) {
                end(parser);
            }
        }
        refuseCodings(parser);
        return take(parser, statusLine_, buffer_.size() == 0);
    }

    /// Parses what has been received; false when that takes the parser no further.
    bool parse(Parser& parser) {
        if (buffer_.size() < least(parser)) {
            return false;
        }
        lookAtStatusLine();
        error_code error;
        const std::size_t used = parser.put(buffer_.data(), error);
        buffer_.consume(used);
        if (error && error != http::error::need_more) {
            throw WireError(WireError::Kind::BadHttp, describe(error, limits_));
        }
        return parser.is_done() || (used > 0 && !error && buffer_.size() > 0);
    }

    /// Fewest bytes to call the parser with. What is left of a chunked body is never shorter than its last
    /// line, "0" and two line ends, and Boost 1.81 asserts that it gets that line as a whole.
    static std::size_t least(const Parser& parser) {
        return parser.is_header_done() && parser.chunked() ? 5 : 1;
    }

    /// Keeps the status line, which the parser takes away, and refuses what is not HTTP at its first byte:
    /// the parser would wait for the end of a header.
    void lookAtStatusLine() {
        if (!statusLine_.empty()) {
            return;
        }
        constexpr std::string_view start = "HTTP/";
        const std::string_view received(static_cast<const char*>(buffer_.data().data()), buffer_.size());
        if (received.substr(0, start.size()) != start.substr(0, received.size())) {
            throw WireError(WireError::Kind::BadHttp, describe(http::error::bad_version, limits_));
        }
        const std::size_t end = received.find('\r');
        if (end != std::string_view::npos) {
            statusLine_ = received.substr(0, end);
        }
    }

    bool readMore() {
        const std::size_t room = buffer_.max_size() - buffer_.size();
        if (room == 0) {
            throw WireError(WireError::Kind::BadHttp, describe(http::error::header_limit, limits_));
        }
        const auto space = buffer_.prepare(std::min(room, readPieceSize));
        const std::size_t received = stream_.read(static_cast<char*>(space.data()), space.size(), deadline_);
        buffer_.commit(received);
        received_ += received;
        return received > 0;
    }

    /// The server closed: that ends a body without a length, and cuts anything else short.
    void end(Parser& parser) {
        if (!parser.got_some()) {
            throw WireError(WireError::Kind::Closed, "Connection closed by CIM Server.");
        }
        error_code error;
        parser.put_eof(error);
        if (error || !parser.is_done()) {
            throw WireError(WireError::Kind::Closed,
                            "Connection closed by CIM Server within its answer, after " +
                                std::to_string(received_) + " bytes.");
        }
    }

    ByteStream& stream_;
    const Limits& limits_;
    Deadline deadline_;
    Buffer& buffer_;
    std::string statusLine_;
    std::size_t received_ = 0;
};

HttpConnection::HttpConnection(std::unique_ptr<ByteStream> stream, const Limits& limits)
    : stream_(std::move(stream)),
      limits_(limits),
      buffer_(std::make_unique<Buffer>(limits.headerBytes + readPieceSize)) {}

HttpConnection::~HttpConnection() = default;

bool HttpConnection::isIdle() {
    char stray = 0;
    return !stream_->readAvailable(&stray, 1).has_value();
}

HttpResponse HttpConnection::exchange(std::string_view request, Deadline deadline) {
    send(request, deadline);
    buffer_->clear();
    return Receiver(*stream_, limits_, deadline, *buffer_).receive();
}

void HttpConnection::send(std::string_view request, Deadline deadline) {
    try {
        stream_->write(request, deadline);
    } catch (const WireError& error) {
        // A server that refuses a request may answer and close before it has read all of it: the answer, if
        // there is one, says why.
        if (error.kind() != WireError::Kind::Closed) {
            throw;
        }
    }
}

}  // namespace cimxml
