#include "cimom/http/TlsContext.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/cimom/support/ServerFixture.h"

namespace cimom {
namespace {

using test::RawConnection;

class TlsContextTest : public test::ServerFixture {
protected:
    std::uint16_t listenTls(bool onlyTls10) {
        Endpoint endpoint;
        endpoint.tls = true;
        endpoint.onlyTls10 = onlyTls10;
        return listen(endpoint);
    }
};

TEST_F(TlsContextTest, OffersNewVersions) {
    const std::uint16_t port = listenTls(false);
    EXPECT_EQ(connect(port, RawConnection::Tls::Any).tlsVersion(), "TLSv1.3");
    EXPECT_EQ(connect(port, RawConnection::Tls::Only12).tlsVersion(), "TLSv1.2");
    EXPECT_THROW(connect(port, RawConnection::Tls::Only10), std::runtime_error);
}

TEST_F(TlsContextTest, OffersTls10AloneWhenAsked) {
    const std::uint16_t port = listenTls(true);
    RawConnection connection = connect(port, RawConnection::Tls::Only10);
    EXPECT_EQ(connection.tlsVersion(), "TLSv1");
    connection.send(instancesRequest());
    EXPECT_EQ(connection.readAnswer().status, 200);
    EXPECT_THROW(connect(port, RawConnection::Tls::AtLeast12), std::runtime_error);
}

TEST_F(TlsContextTest, SurvivesAClientThatSpeaksNoTls) {
    const std::uint16_t port = listenTls(false);
    RawConnection plain = connect(port);
    plain.send(instancesRequest());
    EXPECT_EQ(plain.readAnswer().status, 0);
    EXPECT_EQ(ask(port, instancesRequest(), RawConnection::Tls::Any).status, 200);
}

}  // namespace
}  // namespace cimom
