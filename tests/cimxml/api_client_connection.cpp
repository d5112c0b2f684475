// Connecting, losing the connection and getting it back.

#include <chrono>

#include "tests/cimxml/ClientTesting.h"

using namespace Pegasus;

namespace {

using Kind = cimom::Fault::Kind;
using Connection = ClientTest;

TEST_F(Connection, ARequestWithoutOneThrows) {
    EXPECT_EQ(clientErrorOf<NotConnectedException>([&] { anyRequest(); }), "not connected");
}

TEST_F(Connection, ARequestAfterDisconnectThrows) {
    serveAndConnect();
    client.disconnect();
    EXPECT_EQ(clientErrorOf<NotConnectedException>([&] { anyRequest(); }), "not connected");
}

TEST_F(Connection, DisconnectingWithoutOneIsHarmless) {
    client.disconnect();
    client.disconnect();
    EXPECT_THROW(anyRequest(), NotConnectedException);
}

TEST_F(Connection, ConnectingTwiceThrows) {
    serveAndConnect();
    EXPECT_EQ(clientErrorOf<AlreadyConnectedException>([&] { connect(); }), "already connected");
    EXPECT_GT(anyRequest().size(), 0U);
}

TEST_F(Connection, ConnectingAfterDisconnectWorks) {
    serveAndConnect();
    client.disconnect();
    connect();
    EXPECT_GT(anyRequest().size(), 0U);
}

TEST_F(Connection, NobodyListeningThrows) {
    serve();
    server.stop();
    EXPECT_EQ(clientErrorOf<CannotConnectException>([&] { connect(); }),
              "Cannot connect to " + locator() + ". Connection failed.");
    EXPECT_THROW(anyRequest(), NotConnectedException);
}

TEST_F(Connection, AnUnknownHostThrows) {
    EXPECT_EQ(clientErrorOf<InvalidLocatorException>(
                  [&] { client.connect(String("no.such.host.invalid"), 5988, String(), String()); }),
              "Invalid locator: no.such.host.invalid:5988");
}

TEST_F(Connection, TlsAgainstAServerWithoutItThrows) {
    serve();
    const SSLContext context(String(), nullptr, String());
    client.setTimeout(2000);
    EXPECT_EQ(clientErrorOf<CannotConnectException>(
                  [&] { client.connect(host, port, context, String(), String()); }),
              "Cannot connect to " + locator() + ". Connection failed.");
}

TEST_F(Connection, TlsWithAnUncheckedCertificateWorks) {
    cimom::Endpoint endpoint;
    endpoint.tls = true;
    serve(endpoint);
    const SSLContext context(String(), nullptr, String());
    client.connect(host, port, context, String(), String());
    EXPECT_GT(anyRequest().size(), 0U);
    EXPECT_GT(anyRequest().size(), 0U);
    EXPECT_EQ(server.connectionsAccepted(), 1U);
}

TEST_F(Connection, IsKeptForManyRequests) {
    serveAndConnect();
    for (int i = 0; i < 25; ++i) {
        anyRequest();
    }
    EXPECT_EQ(server.connectionsAccepted(), 1U);
}

TEST_F(Connection, TheDefaultTimeOutIsTwentySeconds) {
    EXPECT_EQ(client.getTimeout(), 20000U);
    client.setTimeout(65535000);
    EXPECT_EQ(client.getTimeout(), 65535000U);
}

TEST_F(Connection, NoAnswerInTimeThrowsAndTheNextRequestReconnects) {
    serveAndConnect();
    inject(Kind::NoAnswer);
    client.setTimeout(200);
    EXPECT_EQ(clientErrorOf<ConnectionTimeoutException>([&] { anyRequest(); }), "connection timed out");
    client.setTimeout(20000);
    EXPECT_GT(anyRequest().size(), 0U);
    EXPECT_EQ(server.connectionsAccepted(), 2U);
    EXPECT_EQ(server.requests().size(), 2U);
}

TEST_F(Connection, AfterATimeOutTheClientMayBeConnectedElsewhere) {
    serveAndConnect();
    inject(Kind::NoAnswer);
    client.setTimeout(200);
    EXPECT_THROW(anyRequest(), ConnectionTimeoutException);
    client.setTimeout(20000);
    connect();
    EXPECT_GT(anyRequest().size(), 0U);
}

TEST_F(Connection, ClosedInPlaceOfAnAnswerThrowsAndTheNextRequestReconnects) {
    serveAndConnect();
    inject(Kind::CloseBeforeAnswer);
    EXPECT_EQ(clientErrorOf<CIMClientMalformedHTTPException>([&] { anyRequest(); }),
              "Connection closed by CIM Server.");
    EXPECT_EQ(server.requests().size(), 1U) << "the lost request was sent again";
    EXPECT_GT(anyRequest().size(), 0U);
    EXPECT_EQ(server.connectionsAccepted(), 2U);
}

TEST_F(Connection, AServerThatCameBackIsReconnectedSilently) {
    serveAndConnect();
    anyRequest();
    server.close("127.0.0.1", static_cast<std::uint16_t>(port));
    cimom::Endpoint again;
    again.port = static_cast<std::uint16_t>(port);
    again.repository = cimom::Repository::sampleNode(0);
    server.listen(again);
    EXPECT_GT(anyRequest().size(), 0U);
}

TEST_F(Connection, AServerThatStaysAwayThrowsOnEveryRequest) {
    serveAndConnect();
    anyRequest();
    server.stop();
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(clientErrorOf<CannotConnectException>([&] { anyRequest(); }),
                  "Cannot connect to " + locator() + ". Connection failed.");
    }
}

TEST_F(Connection, ReachesIpv6Addresses) {
    cimom::Endpoint endpoint;
    endpoint.address = "::1";
    serve(endpoint);
    for (const char* address : {"::1", "[::1]"}) {
        client.connect(String(address), port, String(), String());
        EXPECT_GT(anyRequest().size(), 0U) << address;
        client.disconnect();
    }
}

TEST_F(Connection, ReachesHostNames) {
    serve();
    client.connect(String("localhost"), port, String(), String());
    EXPECT_GT(anyRequest().size(), 0U);
}

}  // namespace
