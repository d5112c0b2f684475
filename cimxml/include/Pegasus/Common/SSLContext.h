#pragma once

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/Linkage.h>
#include <Pegasus/Common/String.h>

#include <memory>

using X509_STORE = struct x509_store_st;

namespace Pegasus {

class SSLCertificateInfo;
struct SSLContextRep;

/// Decides whether to accept a certificate; called for each certificate of the
/// server's chain, also for those that OpenSSL found to be good.
using SSLCertificateVerifyFunction = Boolean(SSLCertificateInfo& certInfo);

/// What a verify function learns about a certificate.
class PEGASUS_COMMON_LINKAGE SSLCertificateInfo {
public:
    // OpenSSL's verification codes (X509_STORE_CTX_get_error) under API names.
    static const int V_OK;
    static const int V_ERR_UNABLE_TO_GET_ISSUER_CERT;
    static const int V_ERR_UNABLE_TO_GET_CRL;
    static const int V_ERR_UNABLE_TO_DECRYPT_CERT_SIGNATURE;
    static const int V_ERR_UNABLE_TO_DECRYPT_CRL_SIGNATURE;
    static const int V_ERR_UNABLE_TO_DECODE_ISSUER_PUBLIC_KEY;
    static const int V_ERR_CERT_SIGNATURE_FAILURE;
    static const int V_ERR_CRL_SIGNATURE_FAILURE;
    static const int V_ERR_CERT_NOT_YET_VALID;
    static const int V_ERR_CERT_HAS_EXPIRED;
    static const int V_ERR_CRL_NOT_YET_VALID;
    static const int V_ERR_CRL_HAS_EXPIRED;
    static const int V_ERR_ERROR_IN_CERT_NOT_BEFORE_FIELD;
    static const int V_ERR_ERROR_IN_CERT_NOT_AFTER_FIELD;
    static const int V_ERR_ERROR_IN_CRL_LAST_UPDATE_FIELD;
    static const int V_ERR_ERROR_IN_CRL_NEXT_UPDATE_FIELD;
    static const int V_ERR_OUT_OF_MEM;
    static const int V_ERR_DEPTH_ZERO_SELF_SIGNED_CERT;
    static const int V_ERR_SELF_SIGNED_CERT_IN_CHAIN;
    static const int V_ERR_UNABLE_TO_GET_ISSUER_CERT_LOCALLY;
    static const int V_ERR_UNABLE_TO_VERIFY_LEAF_SIGNATURE;
    static const int V_ERR_CERT_CHAIN_TOO_LONG;
    static const int V_ERR_CERT_REVOKED;
    static const int V_ERR_INVALID_CA;
    static const int V_ERR_PATH_LENGTH_EXCEEDED;
    static const int V_ERR_INVALID_PURPOSE;
    static const int V_ERR_CERT_UNTRUSTED;
    static const int V_ERR_CERT_REJECTED;
    static const int V_ERR_SUBJECT_ISSUER_MISMATCH;
    static const int V_ERR_AKID_SKID_MISMATCH;
    static const int V_ERR_AKID_ISSUER_SERIAL_MISMATCH;
    static const int V_ERR_KEYUSAGE_NO_CERTSIGN;
    static const int V_ERR_APPLICATION_VERIFICATION;

    SSLCertificateInfo(const String subjectName, const String issuerName, const int errorDepth,
                       const int errorCode, const int respCode);

    String getSubjectName() const { return _subjectName; }
    String getIssuerName() const { return _issuerName; }
    CIMDateTime getNotAfter() const { return _notAfter; }
    CIMDateTime getNotBefore() const { return _notBefore; }
    Uint32 getVersionNumber() const { return _versionNumber; }
    long getSerialNumber() const { return _serialNumber; }
    /// The certificate's place in the chain: 0 is the server's own.
    Uint32 getErrorDepth() const { return _errorDepth; }
    Uint32 getErrorCode() const { return _errorCode; }
    void setErrorCode(const int errorCode) { _errorCode = Uint32(errorCode); }
    String getErrorString() const { return _errorString; }
    /// OpenSSL's own decision: 1 accepted, 0 rejected.
    Uint32 getResponseCode() const { return _responseCode; }
    void setResponseCode(const int respCode) { _responseCode = Uint32(respCode); }

    String toString() const;

private:
    /// Fills in what the public constructor leaves empty.
    friend class SSLCallback;

    String _subjectName;
    String _issuerName;
    String _errorString;
    CIMDateTime _notBefore;
    CIMDateTime _notAfter;
    Uint32 _versionNumber = 0;
    long _serialNumber = 0;
    Uint32 _errorDepth;
    Uint32 _errorCode;
    Uint32 _responseCode;
};

/// How a client secures its connections: which certificates it trusts, who
/// decides, and with which certificate it identifies itself. With neither a
/// trust store nor a verify function any server is accepted. Making one throws
/// SSLException when a certificate or key cannot be read.
class PEGASUS_COMMON_LINKAGE SSLContext {
public:
    /// `trustStore` is a PEM file or a directory of certificates, or empty;
    /// `verifyCert` may be null. The random file has no meaning any more.
    SSLContext(const String& trustStore, SSLCertificateVerifyFunction* verifyCert,
               const String& randomFile = String::EMPTY);
    /// `certPath` and `keyPath` are PEM files or empty; without a key file the
    /// key is looked for in the certificate's file.
    SSLContext(const String& trustStore, const String& certPath, const String& keyPath,
               SSLCertificateVerifyFunction* verifyCert, const String& randomFile);
    /// `crlPath` is a PEM file or a directory of revocation lists, or empty.
    SSLContext(const String& trustStore, const String& certPath, const String& keyPath, const String& crlPath,
               SSLCertificateVerifyFunction* verifyCert, const String& randomFile);
    SSLContext(const SSLContext& other);
    ~SSLContext();

    String getTrustStore() const;
    String getCertPath() const;
    String getKeyPath() const;
    String getCRLPath() const;
    /// The revocation lists, owned by this context; null without them.
    X509_STORE* getCRLStore() const;

    /// Whether there is a trust store or a verify function.
    Boolean isPeerVerificationEnabled() const;
    SSLCertificateVerifyFunction* getSSLCertificateVerifyFunction() const;

private:
    SSLContext& operator=(const SSLContext&) = delete;

    std::shared_ptr<const SSLContextRep> _rep;
};

}  // namespace Pegasus
