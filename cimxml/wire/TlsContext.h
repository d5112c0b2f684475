#pragma once

#include <functional>
#include <memory>
#include <string>

struct ssl_ctx_st;
struct x509_store_ctx_st;

namespace cimxml {

/// What a client wants of its TLS connections. Paths are in UTF-8; an empty one switches its part off.
struct TlsSettings {
    std::string trustStore;       ///< PEM file or directory of trusted certificates.
    std::string crlStore;         ///< PEM file or directory of revocation lists; needs a trust store.
    std::string certificateFile;  ///< PEM chain that the client shows to the server.
    std::string keyFile;          ///< PEM key of that certificate.
    /// Asked about every certificate of the server's chain with OpenSSL's own finding; its answer decides.
    std::function<bool(bool accepted, x509_store_ctx_st* certificate)> verify;
};

/// TLS settings ready for use by any number of connections (OpenSSL 3).
///
/// Management controllers outlive their TLS stacks by decades: protocols down to TLS 1.0 with any cipher
/// that authenticates the server, small keys, and peers without secure renegotiation (RFC 5746) are all
/// accepted. Certificates are checked only when there is a trust store or a verify function.
class TlsContext {
public:
    /// Throws WireError TlsSetup with OpenSSL's reason when a file cannot be used.
    explicit TlsContext(TlsSettings settings);
    ~TlsContext();
    TlsContext(const TlsContext&) = delete;
    TlsContext& operator=(const TlsContext&) = delete;

    /// The OpenSSL context, owned by this object.
    ssl_ctx_st* native() const { return context_.get(); }
    const TlsSettings& settings() const { return settings_; }

private:
    void allowOldPeers();
    void loadTrust();
    void loadRevocations();
    void loadClientCertificate();

    struct Free {
        void operator()(ssl_ctx_st* context) const;
    };
    TlsSettings settings_;
    std::unique_ptr<ssl_ctx_st, Free> context_;
};

/// The text of OpenSSL's oldest pending error of this thread, e.g. "no protocols available"; empties the
/// queue.
std::string takeTlsError();

}  // namespace cimxml
