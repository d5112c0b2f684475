#pragma once

#include <openssl/ssl.h>

#include <memory>

#include "bench/Socket.h"

namespace bench {

/// TLS over a socket, by OpenSSL alone: SSL_write and SSL_read that block, as little as there can be.
class TlsSocket : public Stream {
public:
    /// A client's end; completes the handshake. The server's certificate is not checked.
    static TlsSocket Connect(Socket socket);
    /// A server's end; completes the handshake, with a self-signed certificate that the process keeps.
    static TlsSocket Accept(Socket socket);

    void Send(std::string_view bytes) const override;
    std::size_t Receive(char* buffer, std::size_t size) const override;

private:
    TlsSocket(Socket socket, SSL_CTX* context);

    Socket socket_;
    std::unique_ptr<SSL, void (*)(SSL*)> tls_;
};

}  // namespace bench
