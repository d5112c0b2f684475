#include "tests/cimom/support/RawConnection.h"

#include <openssl/ssl.h>

#include <csignal>
#include <stdexcept>

#include "cimom/common/Text.h"
#include "tests/cimom/support/Sockets.h"

namespace cimom::test {
namespace {

constexpr int kLongestWaitSeconds = 10;

[[noreturn]] void fail(const std::string& what, int error) {
    throw std::runtime_error(what + ": " + textOfSocketError(error));
}

Socket connectTo(const std::string& address, std::uint16_t port) {
    const bool ipv6 = address.find(':') != std::string::npos;
    startSockets();
    const Socket handle = ::socket(ipv6 ? AF_INET6 : AF_INET, SOCK_STREAM, 0);
    limitWaiting(handle, kLongestWaitSeconds);
    sockaddr_storage storage{};
    socklen_t size = 0;
    if (ipv6) {
        auto* target = reinterpret_cast<sockaddr_in6*>(&storage);
        target->sin6_family = AF_INET6;
        target->sin6_port = htons(port);
        ::inet_pton(AF_INET6, address.c_str(), &target->sin6_addr);
        size = sizeof *target;
    } else {
        auto* target = reinterpret_cast<sockaddr_in*>(&storage);
        target->sin_family = AF_INET;
        target->sin_port = htons(port);
        ::inet_pton(AF_INET, address.c_str(), &target->sin_addr);
        size = sizeof *target;
    }
    if (::connect(handle, reinterpret_cast<sockaddr*>(&storage), size) != 0) {
        const int error = lastSocketError();
        closeSocket(handle);
        fail("cannot connect to " + address + " port " + std::to_string(port), error);
    }
    return handle;
}

using SslContext = std::unique_ptr<SSL_CTX, decltype(&SSL_CTX_free)>;

SslContext makeContext(RawConnection::Tls tls) {
    SslContext context(SSL_CTX_new(TLS_client_method()), SSL_CTX_free);
    if (tls == RawConnection::Tls::Only10) {
        SSL_CTX_set_min_proto_version(context.get(), TLS1_VERSION);
        SSL_CTX_set_max_proto_version(context.get(), TLS1_VERSION);
        SSL_CTX_set_cipher_list(context.get(), "ALL:@SECLEVEL=0");
    } else if (tls == RawConnection::Tls::Only12) {
        SSL_CTX_set_max_proto_version(context.get(), TLS1_2_VERSION);
    } else if (tls == RawConnection::Tls::AtLeast12) {
        SSL_CTX_set_min_proto_version(context.get(), TLS1_2_VERSION);
    }
    return context;
}

}  // namespace

struct RawConnection::Impl {
    explicit Impl(Socket connected) : handle(connected) {}

    const Socket handle;
    SslContext context{nullptr, SSL_CTX_free};
    std::unique_ptr<SSL, decltype(&SSL_free)> ssl{nullptr, SSL_free};

    ~Impl() {
        ssl.reset();
        closeSocket(handle);
    }
};

RawConnection::RawConnection(const std::string& address, std::uint16_t port, Tls tls)
    : impl_(std::make_unique<Impl>(connectTo(address, port))) {
#ifdef SIGPIPE
    std::signal(SIGPIPE, SIG_IGN);
#endif
    if (tls == Tls::None) {
        return;
    }
    impl_->context = makeContext(tls);
    impl_->ssl.reset(SSL_new(impl_->context.get()));
    SSL_set_fd(impl_->ssl.get(), static_cast<int>(impl_->handle));
    if (SSL_connect(impl_->ssl.get()) != 1) {
        throw std::runtime_error("the TLS handshake failed");
    }
}

RawConnection::~RawConnection() = default;

bool RawConnection::send(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto sent = impl_->ssl
                              ? SSL_write(impl_->ssl.get(), bytes.data(), static_cast<int>(bytes.size()))
                              : sendSome(impl_->handle, bytes);
        if (sent <= 0) {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

void RawConnection::finishSending() {
    ::shutdown(impl_->handle, kSendingSide);
}

std::string RawConnection::readSome() {
    char bytes[16384];
    const auto read = impl_->ssl ? SSL_read(impl_->ssl.get(), bytes, sizeof bytes)
                                 : ::recv(impl_->handle, bytes, sizeof bytes, 0);
    if (read < 0 && isTimeout(lastSocketError())) {
        fail("nothing came for ten seconds", lastSocketError());
    }
    return read <= 0 ? std::string() : std::string(bytes, static_cast<std::size_t>(read));
}

std::string RawConnection::readLine() {
    auto end = buffer_.find("\r\n");
    while (end == std::string::npos) {
        const std::string more = readSome();
        if (more.empty()) {
            return {};
        }
        buffer_ += more;
        end = buffer_.find("\r\n");
    }
    std::string line = buffer_.substr(0, end + 2);
    buffer_.erase(0, end + 2);
    return line;
}

bool RawConnection::readFields(std::map<std::string, std::string>& fields) {
    for (std::string line = readLine(); line != "\r\n"; line = readLine()) {
        const auto colon = line.find(':');
        if (colon == std::string::npos) {
            return false;
        }
        fields[lowered(line.substr(0, colon))] = trimmed(line.substr(colon + 1));
    }
    return true;
}

bool RawConnection::readExactly(std::size_t count, std::string& into) {
    while (buffer_.size() < count) {
        const std::string more = readSome();
        if (more.empty()) {
            into += buffer_;
            buffer_.clear();
            return false;
        }
        buffer_ += more;
    }
    into.append(buffer_, 0, count);
    buffer_.erase(0, count);
    return true;
}

bool RawConnection::readChunks(RawAnswer& answer) {
    for (;;) {
        const std::string line = readLine();
        if (line.empty()) {
            return false;
        }
        const std::size_t size = std::stoul(line, nullptr, 16);
        if (size == 0) {
            return readFields(answer.trailers);
        }
        if (!readExactly(size, answer.body) || readLine() != "\r\n") {
            return false;
        }
    }
}

RawAnswer RawConnection::readAnswer() {
    RawAnswer answer;
    const std::string line = readLine();
    if (line.size() < 14 || line.compare(0, 9, "HTTP/1.1 ") != 0) {
        return answer;
    }
    answer.status = std::stoi(line.substr(9, 3));
    answer.reason = trimmed(line.substr(12));
    if (!readFields(answer.fields)) {
        return answer;
    }
    if (answer.fields.count("transfer-encoding") != 0) {
        answer.complete = readChunks(answer);
    } else if (answer.fields.count("content-length") != 0) {
        answer.complete = readExactly(std::stoul(answer.fields["content-length"]), answer.body);
    } else {
        answer.complete = true;
    }
    return answer;
}

std::string RawConnection::readToEnd() {
    for (std::string more = readSome(); !more.empty(); more = readSome()) {
        buffer_ += more;
    }
    return std::move(buffer_);
}

bool RawConnection::readableWithin(int milliseconds) const {
    return !buffer_.empty() || (impl_->ssl && SSL_pending(impl_->ssl.get()) > 0) ||
           isReadable(impl_->handle, milliseconds);
}

std::string RawConnection::tlsVersion() const {
    return impl_->ssl ? SSL_get_version(impl_->ssl.get()) : "";
}

}  // namespace cimom::test
