#pragma once

#include <Pegasus/Common/SSLContext.h>

#include <memory>

#include "cimxml/wire/TlsContext.h"

namespace Pegasus {

/// Brings the API's TLS settings to the wire, and certificates to the API's verify function.
class SSLCallback {
public:
    /// Throws cimxml::WireError TlsSetup when the context's files cannot be used.
    static std::shared_ptr<const cimxml::TlsContext> makeContext(const SSLContext& context);

private:
    static bool ask(SSLCertificateVerifyFunction* verify, bool accepted, x509_store_ctx_st* certificate);
    static SSLCertificateInfo describe(bool accepted, x509_store_ctx_st* certificate);
};

}  // namespace Pegasus
