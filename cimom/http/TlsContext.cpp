#include "cimom/http/TlsContext.h"

#include <stdexcept>

#include "cimom/http/Certificate.h"

namespace cimom {
namespace {

void limitVersions(SSL_CTX* context, int oldest, int newest) {
    if (SSL_CTX_set_min_proto_version(context, oldest) != 1 ||
        SSL_CTX_set_max_proto_version(context, newest) != 1) {
        throw std::runtime_error("OpenSSL does not offer the TLS version asked for");
    }
}

void offerOldCiphers(SSL_CTX* context) {
    // Security level 0 lets in what newer levels forbid: SHA-1 signatures and 1024-bit keys.
    if (SSL_CTX_set_cipher_list(context, "AES128-SHA:AES256-SHA:@SECLEVEL=0") != 1) {
        throw std::runtime_error("OpenSSL does not offer the ciphers of TLS 1.0");
    }
}

}  // namespace

boost::asio::ssl::context makeTlsContext(bool onlyTls10) {
    boost::asio::ssl::context context(boost::asio::ssl::context::tls_server);
    SSL_CTX* native = context.native_handle();
    if (onlyTls10) {
        limitVersions(native, TLS1_VERSION, TLS1_VERSION);
        offerOldCiphers(native);
        Certificate::shared(Certificate::Kind::Old).useIn(native);
    } else {
        limitVersions(native, TLS1_2_VERSION, 0);
        Certificate::shared(Certificate::Kind::Modern).useIn(native);
    }
    return context;
}

}  // namespace cimom
