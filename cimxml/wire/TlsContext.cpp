#include "cimxml/wire/TlsContext.h"

#include <openssl/err.h>
#include <openssl/ssl.h>
#include <openssl/x509_vfy.h>

#include <filesystem>

#include "cimxml/wire/WireError.h"

namespace cimxml {

namespace {

[[noreturn]] void fail(const std::string& what) {
    throw WireError(WireError::Kind::TlsSetup, what + ": " + takeTlsError());
}

void require(long succeeded, const std::string& what) {
    if (succeeded != 1) {
        fail(what);
    }
}

bool isDirectory(const std::string& path) {
    std::error_code ignored;
    return std::filesystem::is_directory(std::filesystem::u8path(path), ignored);
}

int askVerifyFunction(int accepted, X509_STORE_CTX* certificate) {
    const auto* ssl = static_cast<const SSL*>(
        X509_STORE_CTX_get_ex_data(certificate, SSL_get_ex_data_X509_STORE_CTX_idx()));
    const auto* settings = static_cast<const TlsSettings*>(SSL_CTX_get_app_data(SSL_get_SSL_CTX(ssl)));
    return settings->verify(accepted == 1, certificate) ? 1 : 0;
}

}  // namespace

std::string takeTlsError() {
    const unsigned long code = ERR_get_error();
    ERR_clear_error();
    const char* reason = code == 0 ? nullptr : ERR_reason_error_string(code);
    return reason != nullptr ? reason : "unknown error";
}

void TlsContext::Free::operator()(ssl_ctx_st* context) const {
    SSL_CTX_free(context);
}

TlsContext::TlsContext(TlsSettings settings)
    : settings_(std::move(settings)), context_(SSL_CTX_new(TLS_client_method())) {
    if (!context_) {
        fail("cannot create a TLS context");
    }
    allowOldPeers();
    loadTrust();
    loadRevocations();
    loadClientCertificate();
}

TlsContext::~TlsContext() = default;

void TlsContext::allowOldPeers() {
    // Debian's OpenSSL starts at TLS 1.2 and security level 2; every setting here undoes a part of that.
    require(SSL_CTX_set_min_proto_version(context_.get(), TLS1_VERSION), "TLS 1.0");
    require(SSL_CTX_set_cipher_list(context_.get(), "ALL:!aNULL:!eNULL:@SECLEVEL=0"), "cipher list");
    SSL_CTX_set_options(context_.get(),
                        SSL_OP_LEGACY_SERVER_CONNECT | SSL_OP_ALLOW_UNSAFE_LEGACY_RENEGOTIATION);
    SSL_CTX_set_mode(context_.get(), SSL_MODE_ENABLE_PARTIAL_WRITE | SSL_MODE_RELEASE_BUFFERS);
}

void TlsContext::loadTrust() {
    if (settings_.trustStore.empty() && !settings_.verify) {
        SSL_CTX_set_verify(context_.get(), SSL_VERIFY_NONE, nullptr);
        return;
    }
    SSL_CTX_set_app_data(context_.get(), &settings_);
    SSL_CTX_set_verify(context_.get(), SSL_VERIFY_PEER, settings_.verify ? askVerifyFunction : nullptr);
    if (settings_.trustStore.empty()) {
        return;
    }
    const char* path = settings_.trustStore.c_str();
    const bool directory = isDirectory(settings_.trustStore);
    require(
        SSL_CTX_load_verify_locations(context_.get(), directory ? nullptr : path, directory ? path : nullptr),
        "trust store " + settings_.trustStore);
}

void TlsContext::loadRevocations() {
    if (settings_.crlStore.empty()) {
        return;
    }
    X509_STORE* store = SSL_CTX_get_cert_store(context_.get());
    const char* path = settings_.crlStore.c_str();
    const bool directory = isDirectory(settings_.crlStore);
    require(X509_STORE_load_locations(store, directory ? nullptr : path, directory ? path : nullptr),
            "revocation lists " + settings_.crlStore);
    X509_STORE_set_flags(store, X509_V_FLAG_CRL_CHECK);
}

void TlsContext::loadClientCertificate() {
    if (settings_.certificateFile.empty()) {
        return;
    }
    const std::string& key = settings_.keyFile.empty() ? settings_.certificateFile : settings_.keyFile;
    require(SSL_CTX_use_certificate_chain_file(context_.get(), settings_.certificateFile.c_str()),
            "certificate " + settings_.certificateFile);
    require(SSL_CTX_use_PrivateKey_file(context_.get(), key.c_str(), SSL_FILETYPE_PEM), "key " + key);
    require(SSL_CTX_check_private_key(context_.get()), "certificate and key do not match");
}

}  // namespace cimxml
