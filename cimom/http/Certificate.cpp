#include "cimom/http/Certificate.h"

#include <openssl/evp.h>
#include <openssl/rand.h>
#include <openssl/rsa.h>
#include <openssl/x509v3.h>

#include <memory>
#include <stdexcept>

namespace cimom {
namespace {

void require(bool done, const char* what) {
    if (!done) {
        throw std::runtime_error(std::string("OpenSSL cannot ") + what);
    }
}

EVP_PKEY* makeKey(Certificate::Kind kind) {
    constexpr std::size_t kOldBits = 1024;
    EVP_PKEY* key = kind == Certificate::Kind::Old ? EVP_RSA_gen(kOldBits) : EVP_EC_gen("P-256");
    require(key != nullptr, "make a key pair");
    return key;
}

void setSerialNumber(X509* certificate) {
    // Browsers and some clients refuse two certificates of one issuer with the same number.
    unsigned char bytes[8];
    require(RAND_bytes(bytes, sizeof bytes) == 1, "make a serial number");
    bytes[0] = static_cast<unsigned char>((bytes[0] & 0x7F) | 0x40);
    const std::unique_ptr<BIGNUM, decltype(&BN_free)> number(BN_bin2bn(bytes, sizeof bytes, nullptr),
                                                             BN_free);
    require(number && BN_to_ASN1_INTEGER(number.get(), X509_get_serialNumber(certificate)) != nullptr,
            "set a serial number");
}

void setValidity(X509* certificate) {
    constexpr long kHour = 60 * 60;
    constexpr long kYear = 365 * 24 * kHour;
    // Starts in the past, for clients whose clocks are a little behind.
    require(X509_gmtime_adj(X509_getm_notBefore(certificate), -kHour) != nullptr &&
                X509_gmtime_adj(X509_getm_notAfter(certificate), kYear) != nullptr,
            "set the validity");
}

void setName(X509* certificate) {
    X509_NAME* name = X509_get_subject_name(certificate);
    const auto* text = reinterpret_cast<const unsigned char*>("cimom");
    require(X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, text, -1, -1, 0) == 1 &&
                X509_set_issuer_name(certificate, name) == 1,
            "name a certificate");
}

void setAlternativeNames(X509* certificate) {
    const std::unique_ptr<X509_EXTENSION, decltype(&X509_EXTENSION_free)> extension(
        X509V3_EXT_conf_nid(nullptr, nullptr, NID_subject_alt_name, "DNS:localhost,IP:127.0.0.1,IP:::1"),
        X509_EXTENSION_free);
    require(extension && X509_add_ext(certificate, extension.get(), -1) == 1, "add alternative names");
}

}  // namespace

const Certificate& Certificate::shared(Kind kind) {
    if (kind == Kind::Old) {
        static const Certificate old(Kind::Old);
        return old;
    }
    static const Certificate modern(Kind::Modern);
    return modern;
}

Certificate::Certificate(Kind kind) {
    // In unique_ptrs until all is done, so that a failure half-way leaks nothing.
    std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)> key(makeKey(kind), EVP_PKEY_free);
    std::unique_ptr<X509, decltype(&X509_free)> certificate(X509_new(), X509_free);
    require(certificate && X509_set_version(certificate.get(), 2) == 1, "make a certificate");
    setSerialNumber(certificate.get());
    setValidity(certificate.get());
    setName(certificate.get());
    require(X509_set_pubkey(certificate.get(), key.get()) == 1, "set the public key");
    setAlternativeNames(certificate.get());
    const EVP_MD* digest = kind == Kind::Old ? EVP_sha1() : EVP_sha256();
    require(X509_sign(certificate.get(), key.get(), digest) != 0, "sign a certificate");
    key_ = key.release();
    certificate_ = certificate.release();
}

Certificate::~Certificate() {
    X509_free(certificate_);
    EVP_PKEY_free(key_);
}

void Certificate::useIn(SSL_CTX* context) const {
    require(SSL_CTX_use_certificate(context, certificate_) == 1 && SSL_CTX_use_PrivateKey(context, key_) == 1,
            "use the certificate");
}

}  // namespace cimom
