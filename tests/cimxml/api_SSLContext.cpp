#include <Pegasus/Common/SSLContext.h>

#include "ApiTesting.h"

using namespace Pegasus;

namespace {

Boolean acceptAll(SSLCertificateInfo&) {
    return true;
}

}  // namespace

TEST(SSLContext, WithoutTrustStoreAndVerifyFunctionChecksNothing) {
    const SSLContext context(String(), nullptr, String());
    EXPECT_FALSE(context.isPeerVerificationEnabled());
    EXPECT_EQ(utf8(context.getTrustStore()), "");
    EXPECT_EQ(utf8(context.getCertPath()), "");
    EXPECT_EQ(utf8(context.getKeyPath()), "");
    EXPECT_EQ(context.getSSLCertificateVerifyFunction(), nullptr);
}

TEST(SSLContext, AVerifyFunctionEnablesVerification) {
    const SSLContext context(String(), acceptAll);
    EXPECT_TRUE(context.isPeerVerificationEnabled());
    EXPECT_EQ(context.getSSLCertificateVerifyFunction(), &acceptAll);
}

TEST(SSLContext, ATrustStoreEnablesVerificationThoughItIsEmptyOrMissing) {
    const SSLContext context(String("/nonexistent/store.pem"), nullptr);
    EXPECT_TRUE(context.isPeerVerificationEnabled());
    EXPECT_EQ(utf8(context.getTrustStore()), "/nonexistent/store.pem");
    const SSLContext directory(String("/"), nullptr);
    EXPECT_TRUE(directory.isPeerVerificationEnabled());
}

TEST(SSLContext, CopiesHaveTheSameSettings) {
    const SSLContext original(String("/nonexistent/store.pem"), acceptAll);
    const SSLContext copy(original);
    EXPECT_EQ(utf8(copy.getTrustStore()), "/nonexistent/store.pem");
    EXPECT_EQ(copy.getSSLCertificateVerifyFunction(), &acceptAll);
    EXPECT_TRUE(copy.isPeerVerificationEnabled());
}

TEST(SSLContext, RejectsCertificatesAndKeysThatCannotBeRead) {
    EXPECT_EQ(messageThrownBy<SSLException>(
                  [] { SSLContext(String(), String("/nonexistent/cert.pem"), String(), nullptr, String()); }),
              "SSL Exception: Could not access server certificate in /nonexistent/cert.pem.");
    EXPECT_EQ(messageThrownBy<SSLException>(
                  [] { SSLContext(String(), String(), String("/nonexistent/key.pem"), nullptr, String()); }),
              "SSL Exception: Could not get private key.");
}

TEST(SSLContext, RejectsATrustStoreThatHoldsNoCertificates) {
    EXPECT_EQ(messageThrownBy<SSLException>([] { SSLContext(String("/proc/self/exe"), nullptr); }),
              "SSL Exception: Could not load certificates in to trust store.");
}

TEST(SSLCertificateInfo, HoldsWhatItIsMadeOf) {
    SSLCertificateInfo info(String("/CN=subject"), String("/CN=issuer"), 1,
                            SSLCertificateInfo::V_ERR_DEPTH_ZERO_SELF_SIGNED_CERT, 0);
    EXPECT_EQ(utf8(info.getSubjectName()), "/CN=subject");
    EXPECT_EQ(utf8(info.getIssuerName()), "/CN=issuer");
    EXPECT_EQ(info.getErrorDepth(), 1u);
    EXPECT_EQ(info.getErrorCode(), 18u);
    EXPECT_EQ(info.getResponseCode(), 0u);
    EXPECT_EQ(info.getVersionNumber(), 0u);
    EXPECT_EQ(info.getSerialNumber(), 0);
    EXPECT_EQ(utf8(info.getErrorString()), "");
    EXPECT_TRUE(info.getNotBefore() == CIMDateTime());
    EXPECT_TRUE(info.getNotAfter() == CIMDateTime());
    info.setErrorCode(SSLCertificateInfo::V_OK);
    info.setResponseCode(1);
    EXPECT_EQ(info.getErrorCode(), 0u);
    EXPECT_EQ(info.getResponseCode(), 1u);
}

TEST(SSLCertificateInfo, HasATextForPeople) {
    const SSLCertificateInfo info(String("/CN=s"), String("/CN=i"), 1, 18, 0);
    EXPECT_EQ(utf8(info.toString()),
              "Subject Name:\n\t/CN=s\nIssuer Name:\n\t/CN=i\nDepth: 1\nError code: 18\n"
              "Response (preverify) code: 0\nError string: \nVersion number: 0\nSerial number: 0\n"
              "Not before date: 00000000000000.000000:000\nNot after date: 00000000000000.000000:000\n");
}

TEST(SSLCertificateInfo, HasTheCodesOfOpenSsl) {
    EXPECT_EQ(SSLCertificateInfo::V_OK, 0);
    EXPECT_EQ(SSLCertificateInfo::V_ERR_UNABLE_TO_GET_ISSUER_CERT, 2);
    EXPECT_EQ(SSLCertificateInfo::V_ERR_CERT_HAS_EXPIRED, 10);
    EXPECT_EQ(SSLCertificateInfo::V_ERR_SELF_SIGNED_CERT_IN_CHAIN, 19);
    EXPECT_EQ(SSLCertificateInfo::V_ERR_CERT_REVOKED, 23);
    EXPECT_EQ(SSLCertificateInfo::V_ERR_INVALID_CA, 24);
    EXPECT_EQ(SSLCertificateInfo::V_ERR_KEYUSAGE_NO_CERTSIGN, 32);
    EXPECT_EQ(SSLCertificateInfo::V_ERR_APPLICATION_VERIFICATION, 50);
}
