#include "cimxml/client/SSLCallback.h"

#include <openssl/asn1.h>
#include <openssl/bn.h>
#include <openssl/x509.h>
#include <openssl/x509_vfy.h>

#include <cstdio>
#include <ctime>
#include <string>

#include "cimxml/client/ApiText.h"
#include "cimxml/common/Utf8.h"

namespace Pegasus {

namespace {

/// A name in the one-line form /C=DE/CN=host, as OpenPegasus shows it.
String nameOf(const X509_NAME* name) {
    char text[1024] = {};
    return name == nullptr ? String() : toApiText(X509_NAME_oneline(name, text, sizeof text));
}

/// A certificate's time, which is always UTC.
CIMDateTime timeOf(const ASN1_TIME* time) {
    std::tm moment{};
    if (time == nullptr || ASN1_TIME_to_tm(time, &moment) != 1) {
        return CIMDateTime();
    }
    char text[64];
    std::snprintf(text, sizeof text, "%04d%02d%02d%02d%02d%02d.000000+000", moment.tm_year + 1900,
                  moment.tm_mon + 1, moment.tm_mday, moment.tm_hour, moment.tm_min, moment.tm_sec);
    return CIMDateTime(String(text));
}

}  // namespace

std::shared_ptr<const cimxml::TlsContext> SSLCallback::makeContext(const SSLContext& context) {
    cimxml::TlsSettings settings;
    settings.trustStore = toUtf8(context.getTrustStore());
    settings.crlStore = toUtf8(context.getCRLPath());
    settings.certificateFile = toUtf8(context.getCertPath());
    settings.keyFile = toUtf8(context.getKeyPath());
    if (SSLCertificateVerifyFunction* verify = context.getSSLCertificateVerifyFunction()) {
        settings.verify = [verify](bool accepted, x509_store_ctx_st* certificate) {
            return ask(verify, accepted, certificate);
        };
    }
    return std::make_shared<const cimxml::TlsContext>(std::move(settings));
}

bool SSLCallback::ask(SSLCertificateVerifyFunction* verify, bool accepted, x509_store_ctx_st* certificate) {
    SSLCertificateInfo info = describe(accepted, certificate);
    try {
        return verify(info);
    } catch (...) {
        // An exception must not pass through OpenSSL; who cannot decide does not trust.
        return false;
    }
}

SSLCertificateInfo SSLCallback::describe(bool accepted, x509_store_ctx_st* certificate) {
    const int code = X509_STORE_CTX_get_error(certificate);
    const int depth = X509_STORE_CTX_get_error_depth(certificate);
    X509* x509 = X509_STORE_CTX_get_current_cert(certificate);
    if (x509 == nullptr) {
        return SSLCertificateInfo(String(), String(), depth, code, accepted ? 1 : 0);
    }
    SSLCertificateInfo info(nameOf(X509_get_subject_name(x509)), nameOf(X509_get_issuer_name(x509)), depth,
                            code, accepted ? 1 : 0);
    info._errorString = toApiText(X509_verify_cert_error_string(code));
    info._notBefore = timeOf(X509_get0_notBefore(x509));
    info._notAfter = timeOf(X509_get0_notAfter(x509));
    info._versionNumber = static_cast<Uint32>(X509_get_version(x509) + 1);
    info._serialNumber = ASN1_INTEGER_get(X509_get0_serialNumber(x509));
    return info;
}

}  // namespace Pegasus
