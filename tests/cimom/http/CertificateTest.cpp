#include "cimom/http/Certificate.h"

#include <gtest/gtest.h>
#include <openssl/evp.h>
#include <openssl/x509v3.h>

#include <memory>

namespace cimom {
namespace {

class CertificateTest : public testing::TestWithParam<Certificate::Kind> {
protected:
    CertificateTest() {
        SSL_CTX_set_security_level(context_.get(), 0);
        Certificate::shared(GetParam()).useIn(context_.get());
        certificate_ = SSL_CTX_get0_certificate(context_.get());
    }

    std::unique_ptr<SSL_CTX, decltype(&SSL_CTX_free)> context_{SSL_CTX_new(TLS_server_method()),
                                                               SSL_CTX_free};
    X509* certificate_ = nullptr;
};

INSTANTIATE_TEST_SUITE_P(Kinds, CertificateTest,
                         testing::Values(Certificate::Kind::Modern, Certificate::Kind::Old),
                         [](const auto& kind) {
                             return kind.param == Certificate::Kind::Old ? "Old" : "Modern";
                         });

TEST_P(CertificateTest, IsSignedByItselfAndFitsItsKey) {
    ASSERT_NE(certificate_, nullptr);
    EXPECT_EQ(SSL_CTX_check_private_key(context_.get()), 1);
    EXPECT_EQ(X509_verify(certificate_, X509_get0_pubkey(certificate_)), 1);
}

TEST_P(CertificateTest, IsValidNowAndForLoopback) {
    EXPECT_EQ(X509_cmp_current_time(X509_get0_notBefore(certificate_)), -1);
    EXPECT_EQ(X509_cmp_current_time(X509_get0_notAfter(certificate_)), 1);
    EXPECT_EQ(X509_check_ip_asc(certificate_, "127.0.0.1", 0), 1);
    EXPECT_EQ(X509_check_ip_asc(certificate_, "::1", 0), 1);
    EXPECT_EQ(X509_check_host(certificate_, "localhost", 0, 0, nullptr), 1);
}

TEST_P(CertificateTest, IsMadeOnceAProcess) {
    EXPECT_EQ(&Certificate::shared(GetParam()), &Certificate::shared(GetParam()));
}

}  // namespace
}  // namespace cimom
