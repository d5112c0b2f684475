#include <Pegasus/Common/SSLContext.h>

#include <openssl/ssl.h>
#include <openssl/x509_vfy.h>

#include <filesystem>
#include <memory>
#include <string>

#include "cimxml/common/SSLContextRep.h"
#include "cimxml/common/Utf8.h"

namespace Pegasus {

namespace {

struct FreeContext {
    void operator()(SSL_CTX* context) const noexcept { SSL_CTX_free(context); }
};
using ContextPtr = std::unique_ptr<SSL_CTX, FreeContext>;
using StorePtr = std::unique_ptr<X509_STORE, SSLContextRep::FreeStore>;

std::filesystem::path toPath(const String& text) {
    return std::filesystem::u8path(toUtf8(text));
}

bool isDirectory(const String& path) {
    std::error_code ignored;
    return std::filesystem::is_directory(toPath(path), ignored);
}

/// Whether there is something to read; an empty or missing store trusts no one.
bool isFilledFile(const String& path) {
    std::error_code error;
    const auto size = std::filesystem::file_size(toPath(path), error);
    return !error && size > 0;
}

void loadTrustStore(SSL_CTX& context, const String& trustStore) {
    if (trustStore.size() == 0) {
        return;
    }
    const std::string path = toUtf8(trustStore);
    const bool failed =
        isDirectory(trustStore)
            ? SSL_CTX_load_verify_locations(&context, nullptr, path.c_str()) != 1
            : isFilledFile(trustStore) && SSL_CTX_load_verify_locations(&context, path.c_str(), nullptr) != 1;
    if (failed) {
        throw SSLException("Could not load certificates in to trust store.");
    }
}

void loadCertificate(SSL_CTX& context, const String& certPath, const String& keyPath) {
    if (certPath.size() > 0 &&
        SSL_CTX_use_certificate_file(&context, toUtf8(certPath).c_str(), SSL_FILETYPE_PEM) != 1) {
        throw SSLException("Could not access server certificate in " + certPath + ".");
    }
    const String& keyFile = keyPath.size() > 0 ? keyPath : certPath;
    if (keyFile.size() == 0) {
        return;
    }
    if (SSL_CTX_use_PrivateKey_file(&context, toUtf8(keyFile).c_str(), SSL_FILETYPE_PEM) != 1 ||
        SSL_CTX_check_private_key(&context) != 1) {
        throw SSLException("Could not get private key.");
    }
}

/// Reads the files once, so that a wrong one is reported where it is named and
/// not at the first connection.
void checkFiles(const SSLContextRep& rep) {
    const ContextPtr context(SSL_CTX_new(TLS_client_method()));
    if (!context) {
        throw SSLException("Could not get SSL CTX");
    }
    loadTrustStore(*context, rep.trustStore);
    loadCertificate(*context, rep.certPath, rep.keyPath);
}

StorePtr loadCrlStore(const String& crlPath) {
    if (crlPath.size() == 0) {
        return nullptr;
    }
    StorePtr store(X509_STORE_new());
    const bool isDir = isDirectory(crlPath);
    X509_LOOKUP* const lookup =
        store ? X509_STORE_add_lookup(store.get(), isDir ? X509_LOOKUP_hash_dir() : X509_LOOKUP_file())
              : nullptr;
    if (!lookup) {
        throw SSLException("Could not load certificate revocation list.");
    }
    if (isDir) {
        X509_LOOKUP_add_dir(lookup, toUtf8(crlPath).c_str(), X509_FILETYPE_PEM);
    } else {
        X509_load_crl_file(lookup, toUtf8(crlPath).c_str(), X509_FILETYPE_PEM);
    }
    return store;
}

}  // namespace

void SSLContextRep::FreeStore::operator()(X509_STORE* store) const noexcept {
    X509_STORE_free(store);
}

SSLContext::SSLContext(const String& trustStore, SSLCertificateVerifyFunction* verifyCert,
                       const String& randomFile)
    : SSLContext(trustStore, String(), String(), String(), verifyCert, randomFile) {}

SSLContext::SSLContext(const String& trustStore, const String& certPath, const String& keyPath,
                       SSLCertificateVerifyFunction* verifyCert, const String& randomFile)
    : SSLContext(trustStore, certPath, keyPath, String(), verifyCert, randomFile) {}

SSLContext::SSLContext(const String& trustStore, const String& certPath, const String& keyPath,
                       const String& crlPath, SSLCertificateVerifyFunction* verifyCert, const String&) {
    auto rep = std::make_shared<SSLContextRep>();
    rep->trustStore = trustStore;
    rep->certPath = certPath;
    rep->keyPath = keyPath;
    rep->crlPath = crlPath;
    rep->verify = verifyCert;
    checkFiles(*rep);
    rep->crlStore = loadCrlStore(crlPath);
    _rep = std::move(rep);
}

SSLContext::SSLContext(const SSLContext& other) = default;
SSLContext::~SSLContext() = default;

String SSLContext::getTrustStore() const {
    return _rep->trustStore;
}

String SSLContext::getCertPath() const {
    return _rep->certPath;
}

String SSLContext::getKeyPath() const {
    return _rep->keyPath;
}

String SSLContext::getCRLPath() const {
    return _rep->crlPath;
}

X509_STORE* SSLContext::getCRLStore() const {
    return _rep->crlStore.get();
}

Boolean SSLContext::isPeerVerificationEnabled() const {
    return _rep->trustStore.size() != 0 || _rep->verify;
}

SSLCertificateVerifyFunction* SSLContext::getSSLCertificateVerifyFunction() const {
    return _rep->verify;
}

}  // namespace Pegasus
