#include "bench/TlsSocket.h"

#include <openssl/err.h>

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>

#include "cimom/http/Certificate.h"

namespace bench {

namespace {

using Context = std::unique_ptr<SSL_CTX, void (*)(SSL_CTX*)>;

void Require(bool succeeded, const char* what) {
    if (!succeeded) {
        throw std::runtime_error(std::string(what) + ": " + ERR_error_string(ERR_get_error(), nullptr));
    }
}

Context MakeServerContext() {
    Context context(SSL_CTX_new(TLS_server_method()), SSL_CTX_free);
    Require(context != nullptr, "TLS context");
    cimom::Certificate::shared(cimom::Certificate::Kind::Modern).useIn(context.get());
    return context;
}

Context MakeClientContext() {
    Context context(SSL_CTX_new(TLS_client_method()), SSL_CTX_free);
    Require(context != nullptr, "TLS context");
    SSL_CTX_set_verify(context.get(), SSL_VERIFY_NONE, nullptr);
    return context;
}

int AtMostInt(std::size_t size) {
    return static_cast<int>(std::min<std::size_t>(size, std::numeric_limits<int>::max()));
}

}  // namespace

TlsSocket::TlsSocket(Socket socket, SSL_CTX* context)
    : socket_(std::move(socket)), tls_(SSL_new(context), SSL_free) {
    Require(tls_ != nullptr && SSL_set_fd(tls_.get(), socket_.Descriptor()) == 1, "TLS connection");
}

TlsSocket TlsSocket::Connect(Socket socket) {
    static const Context context = MakeClientContext();
    TlsSocket result(std::move(socket), context.get());
    Require(SSL_connect(result.tls_.get()) == 1, "TLS handshake");
    return result;
}

TlsSocket TlsSocket::Accept(Socket socket) {
    static const Context context = MakeServerContext();
    TlsSocket result(std::move(socket), context.get());
    Require(SSL_accept(result.tls_.get()) == 1, "TLS handshake");
    return result;
}

void TlsSocket::Send(std::string_view bytes) const {
    while (!bytes.empty()) {
        const int sent = SSL_write(tls_.get(), bytes.data(), AtMostInt(bytes.size()));
        Require(sent > 0, "TLS send");
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
}

std::size_t TlsSocket::Receive(char* buffer, std::size_t size) const {
    const int received = SSL_read(tls_.get(), buffer, AtMostInt(size));
    return received > 0 ? static_cast<std::size_t>(received) : 0;
}

}  // namespace bench
