#pragma once

#include <Pegasus/Common/SSLContext.h>

#include <memory>

typedef struct ssl_ctx_st SSL_CTX;

namespace Pegasus {

/// What an SSLContext and its copies share.
struct SSLContextRep {
    struct FreeNative {
        void operator()(SSL_CTX* context) const noexcept;
    };

    String trustStore;
    String certPath;
    String keyPath;
    SSLCertificateVerifyFunction* verify = nullptr;

    /// The OpenSSL context with trust store, certificate and key loaded; owned
    /// here. Protocol versions, ciphers and the verify callback are the
    /// connection's business.
    std::unique_ptr<SSL_CTX, FreeNative> native;
};

}  // namespace Pegasus
