#pragma once

#include <Pegasus/Common/SSLContext.h>

#include <memory>

namespace Pegasus {

/// What an SSLContext and its copies share.
struct SSLContextRep {
    struct FreeStore {
        void operator()(X509_STORE* store) const noexcept;
    };

    String trustStore;
    String certPath;
    String keyPath;
    String crlPath;
    SSLCertificateVerifyFunction* verify = nullptr;
    std::unique_ptr<X509_STORE, FreeStore> crlStore;
};

}  // namespace Pegasus
