#pragma once

#include <openssl/ssl.h>

namespace cimom {

/// A key pair with a certificate that it signed itself, for "localhost" and the loopback addresses.
class Certificate {
public:
    enum class Kind {
        Modern,  ///< P-256 key, SHA-256 signature.
        Old      ///< 1024-bit RSA key, SHA-1 signature, as controllers of the TLS 1.0 time have.
    };

    /// The process's certificate of that kind, made at the first call and kept until the process ends.
    /// Throws std::runtime_error when OpenSSL cannot make it.
    static const Certificate& shared(Kind kind);

    ~Certificate();
    Certificate(const Certificate&) = delete;
    Certificate& operator=(const Certificate&) = delete;

    /// Makes a TLS context serve with this certificate. The context takes references of its own.
    void useIn(SSL_CTX* context) const;

private:
    explicit Certificate(Kind kind);

    EVP_PKEY* key_ = nullptr;
    X509* certificate_ = nullptr;
};

}  // namespace cimom
