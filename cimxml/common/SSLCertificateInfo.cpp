#include <Pegasus/Common/SSLContext.h>
#include <openssl/x509_vfy.h>

#include <string>

#include "cimxml/common/Utf8.h"

namespace Pegasus {

const int SSLCertificateInfo::V_OK = X509_V_OK;
const int SSLCertificateInfo::V_ERR_UNABLE_TO_GET_ISSUER_CERT = X509_V_ERR_UNABLE_TO_GET_ISSUER_CERT;
const int SSLCertificateInfo::V_ERR_UNABLE_TO_GET_CRL = X509_V_ERR_UNABLE_TO_GET_CRL;
const int SSLCertificateInfo::V_ERR_UNABLE_TO_DECRYPT_CERT_SIGNATURE =
    X509_V_ERR_UNABLE_TO_DECRYPT_CERT_SIGNATURE;
const int SSLCertificateInfo::V_ERR_UNABLE_TO_DECRYPT_CRL_SIGNATURE =
    X509_V_ERR_UNABLE_TO_DECRYPT_CRL_SIGNATURE;
const int SSLCertificateInfo::V_ERR_UNABLE_TO_DECODE_ISSUER_PUBLIC_KEY =
    X509_V_ERR_UNABLE_TO_DECODE_ISSUER_PUBLIC_KEY;
const int SSLCertificateInfo::V_ERR_CERT_SIGNATURE_FAILURE = X509_V_ERR_CERT_SIGNATURE_FAILURE;
const int SSLCertificateInfo::V_ERR_CRL_SIGNATURE_FAILURE = X509_V_ERR_CRL_SIGNATURE_FAILURE;
const int SSLCertificateInfo::V_ERR_CERT_NOT_YET_VALID = X509_V_ERR_CERT_NOT_YET_VALID;
const int SSLCertificateInfo::V_ERR_CERT_HAS_EXPIRED = X509_V_ERR_CERT_HAS_EXPIRED;
const int SSLCertificateInfo::V_ERR_CRL_NOT_YET_VALID = X509_V_ERR_CRL_NOT_YET_VALID;
const int SSLCertificateInfo::V_ERR_CRL_HAS_EXPIRED = X509_V_ERR_CRL_HAS_EXPIRED;
const int SSLCertificateInfo::V_ERR_ERROR_IN_CERT_NOT_BEFORE_FIELD =
    X509_V_ERR_ERROR_IN_CERT_NOT_BEFORE_FIELD;
const int SSLCertificateInfo::V_ERR_ERROR_IN_CERT_NOT_AFTER_FIELD = X509_V_ERR_ERROR_IN_CERT_NOT_AFTER_FIELD;
const int SSLCertificateInfo::V_ERR_ERROR_IN_CRL_LAST_UPDATE_FIELD =
    X509_V_ERR_ERROR_IN_CRL_LAST_UPDATE_FIELD;
const int SSLCertificateInfo::V_ERR_ERROR_IN_CRL_NEXT_UPDATE_FIELD =
    X509_V_ERR_ERROR_IN_CRL_NEXT_UPDATE_FIELD;
const int SSLCertificateInfo::V_ERR_OUT_OF_MEM = X509_V_ERR_OUT_OF_MEM;
const int SSLCertificateInfo::V_ERR_DEPTH_ZERO_SELF_SIGNED_CERT = X509_V_ERR_DEPTH_ZERO_SELF_SIGNED_CERT;
const int SSLCertificateInfo::V_ERR_SELF_SIGNED_CERT_IN_CHAIN = X509_V_ERR_SELF_SIGNED_CERT_IN_CHAIN;
const int SSLCertificateInfo::V_ERR_UNABLE_TO_GET_ISSUER_CERT_LOCALLY =
    X509_V_ERR_UNABLE_TO_GET_ISSUER_CERT_LOCALLY;
const int SSLCertificateInfo::V_ERR_UNABLE_TO_VERIFY_LEAF_SIGNATURE =
    X509_V_ERR_UNABLE_TO_VERIFY_LEAF_SIGNATURE;
const int SSLCertificateInfo::V_ERR_CERT_CHAIN_TOO_LONG = X509_V_ERR_CERT_CHAIN_TOO_LONG;
const int SSLCertificateInfo::V_ERR_CERT_REVOKED = X509_V_ERR_CERT_REVOKED;
// OpenSSL 3 numbers this one anew; the API keeps the number it has always had.
const int SSLCertificateInfo::V_ERR_INVALID_CA = 24;
const int SSLCertificateInfo::V_ERR_PATH_LENGTH_EXCEEDED = X509_V_ERR_PATH_LENGTH_EXCEEDED;
const int SSLCertificateInfo::V_ERR_INVALID_PURPOSE = X509_V_ERR_INVALID_PURPOSE;
const int SSLCertificateInfo::V_ERR_CERT_UNTRUSTED = X509_V_ERR_CERT_UNTRUSTED;
const int SSLCertificateInfo::V_ERR_CERT_REJECTED = X509_V_ERR_CERT_REJECTED;
const int SSLCertificateInfo::V_ERR_SUBJECT_ISSUER_MISMATCH = X509_V_ERR_SUBJECT_ISSUER_MISMATCH;
const int SSLCertificateInfo::V_ERR_AKID_SKID_MISMATCH = X509_V_ERR_AKID_SKID_MISMATCH;
const int SSLCertificateInfo::V_ERR_AKID_ISSUER_SERIAL_MISMATCH = X509_V_ERR_AKID_ISSUER_SERIAL_MISMATCH;
const int SSLCertificateInfo::V_ERR_KEYUSAGE_NO_CERTSIGN = X509_V_ERR_KEYUSAGE_NO_CERTSIGN;
const int SSLCertificateInfo::V_ERR_APPLICATION_VERIFICATION = X509_V_ERR_APPLICATION_VERIFICATION;

SSLCertificateInfo::SSLCertificateInfo(const String subjectName, const String issuerName,
                                       const int errorDepth, const int errorCode, const int respCode)
    : _subjectName(subjectName),
      _issuerName(issuerName),
      _errorDepth(static_cast<Uint32>(errorDepth)),
      _errorCode(static_cast<Uint32>(errorCode)),
      _responseCode(static_cast<Uint32>(respCode)) {}

String SSLCertificateInfo::toString() const {
    return fromUtf8(
        "Subject Name:\n\t" + toUtf8(_subjectName) + "\nIssuer Name:\n\t" + toUtf8(_issuerName) +
        "\nDepth: " + std::to_string(_errorDepth) + "\nError code: " + std::to_string(_errorCode) +
        "\nResponse (preverify) code: " + std::to_string(_responseCode) +
        "\nError string: " + toUtf8(_errorString) + "\nVersion number: " + std::to_string(_versionNumber) +
        "\nSerial number: " + std::to_string(static_cast<unsigned long>(_serialNumber)) +
        "\nNot before date: " + toUtf8(_notBefore.toString()) +
        "\nNot after date: " + toUtf8(_notAfter.toString()) + "\n");
}

}  // namespace Pegasus
