#include "cimxml/wire/TlsStream.h"

#include <Pegasus/Client/CIMClient.h>
#include <gtest/gtest.h>
#include <openssl/err.h>
#include <openssl/ssl.h>

#include <chrono>
#include <memory>
#include <string>

#include "cimom/Server.h"
#include "cimom/http/Certificate.h"
#include "cimxml/client/CIMClientRep.h"
#include "cimxml/wire/HttpConnection.h"
#include "cimxml/wire/TcpStream.h"
#include "cimxml/wire/WireError.h"
#include "tests/cimxml/wire_LoopbackServer.h"

namespace cimxml_test {
namespace {

using cimxml::Deadline;
using cimxml::TcpStream;
using cimxml::TlsContext;
using cimxml::TlsSettings;
using cimxml::TlsStream;
using cimxml::WireError;
using namespace std::chrono_literals;

class TlsStreamTest : public testing::Test {
protected:
    void serve(bool onlyTls10 = false) {
        cimom::Endpoint endpoint;
        endpoint.tls = true;
        endpoint.onlyTls10 = onlyTls10;
        endpoint.repository = cimom::Repository::sampleNode(0);
        port = server.listen(endpoint);
        server.start();
    }

    std::unique_ptr<TlsStream> connect(TlsSettings settings = {}) {
        const Deadline deadline = Deadline::after(10s);
        return std::make_unique<TlsStream>(TcpStream::connect("127.0.0.1", port, deadline),
                                           std::make_shared<const TlsContext>(std::move(settings)),
                                           "localhost", deadline);
    }

    /// Why connecting with these settings fails.
    std::string failure(TlsSettings settings) {
        try {
            connect(std::move(settings));
        } catch (const WireError& error) {
            EXPECT_EQ(error.kind(), WireError::Kind::CannotConnect);
            return error.what();
        }
        return "connected";
    }

    /// Asks something over a stream; true when an answer comes.
    static bool answers(std::unique_ptr<TlsStream> stream) {
        cimxml::HttpConnection connection(std::move(stream), cimxml::Limits());
        return connection.exchange("GET / HTTP/1.1\r\nHost: x\r\n\r\n", Deadline::after(10s)).status >= 400;
    }

    cimom::Server server;
    std::uint16_t port = 0;
};

TEST_F(TlsStreamTest, SpeaksTheNewestProtocol) {
    serve();
    auto stream = connect();
    EXPECT_EQ(stream->protocol(), "TLSv1.3");
    EXPECT_TRUE(answers(std::move(stream)));
}

// Whoever else uses OpenSSL in this process may leave errors behind.
TEST_F(TlsStreamTest, ErrorsOfOthersAreNotItsOwn) {
    serve();
    ERR_put_error(ERR_LIB_USER, 0, 1, __FILE__, __LINE__);
    auto stream = connect();
    ERR_put_error(ERR_LIB_USER, 0, 1, __FILE__, __LINE__);
    EXPECT_TRUE(answers(std::move(stream)));
    EXPECT_EQ(ERR_peek_error(), 0U) << "and none is left to be taken for one";
}

TEST_F(TlsStreamTest, SpeaksTls10WhereThatIsAllThereIs) {
    serve(true);
    auto stream = connect();
    EXPECT_EQ(stream->protocol(), "TLSv1");
    EXPECT_TRUE(answers(std::move(stream)));
}

TEST_F(TlsStreamTest, AClientTalksToATls10Server) {
    serve(true);
    Pegasus::CIMClient client;
    client.connect(Pegasus::String("127.0.0.1"), port, Pegasus::SSLContext(Pegasus::String(), nullptr),
                   Pegasus::String(), Pegasus::String());
    EXPECT_GT(
        client.enumerateInstances(Pegasus::CIMNamespaceName("root/cimv2"), Pegasus::CIMName("CIM_Sensor"))
            .size(),
        0U);
}

TEST_F(TlsStreamTest, GivesWhatCameAtOnceInPiecesAsSmallAsAreAskedFor) {
    serve();
    const auto stream = connect();
    stream->write("GET / HTTP/1.1\r\nHost: x\r\n\r\n", Deadline::after(10s));
    std::string start;
    for (char byte = 0; start.size() < 12; start += byte) {
        ASSERT_EQ(stream->read(&byte, 1, Deadline::after(10s)), 1U);
    }
    EXPECT_EQ(start.substr(0, 9), "HTTP/1.1 ");
}

TEST_F(TlsStreamTest, SessionTicketsAreNoStrayData) {
    serve();
    cimxml::HttpConnection connection(connect(), cimxml::Limits());
    connection.exchange("POST /cimom HTTP/1.1\r\nHost: x\r\nContent-Length: 0\r\n\r\n", Deadline::after(10s));
    Pegasus::CIMClient client;
    client.connect(Pegasus::String("127.0.0.1"), port, Pegasus::SSLContext(Pegasus::String(), nullptr),
                   Pegasus::String(), Pegasus::String());
    const std::size_t before = server.connectionsAccepted();
    for (int i = 0; i < 3; ++i) {
        client.enumerateClassNames(Pegasus::CIMNamespaceName("root/cimv2"));
    }
    EXPECT_EQ(server.connectionsAccepted(), before);
}

TEST_F(TlsStreamTest, ACertificateThatTheTrustStoreDoesNotKnowIsRefused) {
    serve();
    TlsSettings settings;
    settings.trustStore = testing::TempDir();
    EXPECT_EQ(failure(settings), "TLS handshake: self-signed certificate");
}

TEST_F(TlsStreamTest, TheVerifyFunctionDecides) {
    serve();
    TlsSettings settings;
    int rejected = 0;
    settings.verify = [&](bool accepted, x509_store_ctx_st*) {
        rejected += accepted ? 0 : 1;
        return true;
    };
    EXPECT_TRUE(answers(connect(settings)));
    EXPECT_EQ(rejected, 1) << "a self-signed certificate that nobody vouches for";
    settings.verify = [](bool, x509_store_ctx_st*) { return false; };
    EXPECT_NE(failure(settings), "connected");
}

TEST_F(TlsStreamTest, TheApisVerifyFunctionLearnsAboutTheCertificate) {
    serve();
    static std::string subject;
    static Pegasus::Uint32 depth;
    static bool rejected;
    const auto verify = [](Pegasus::SSLCertificateInfo& info) -> Pegasus::Boolean {
        subject = static_cast<const char*>(info.getSubjectName().getCString());
        depth = info.getErrorDepth();
        rejected = rejected || info.getResponseCode() == 0;
        return info.getNotBefore() < info.getNotAfter();
    };
    Pegasus::CIMClient client;
    client.connect(Pegasus::String("127.0.0.1"), port, Pegasus::SSLContext(Pegasus::String(), verify),
                   Pegasus::String(), Pegasus::String());
    EXPECT_NE(subject.find("/CN="), std::string::npos) << subject;
    EXPECT_EQ(depth, 0U);
    EXPECT_TRUE(rejected) << "OpenSSL trusts no certificate that signed itself";
}

TEST_F(TlsStreamTest, AVerifyFunctionThatThrowsDoesNotTrust) {
    serve();
    const auto verify = [](Pegasus::SSLCertificateInfo&) -> Pegasus::Boolean { throw 1; };
    Pegasus::CIMClient client;
    EXPECT_THROW(
        client.connect(Pegasus::String("127.0.0.1"), port, Pegasus::SSLContext(Pegasus::String(), verify),
                       Pegasus::String(), Pegasus::String()),
        Pegasus::CannotConnectException);
}

TEST_F(TlsStreamTest, FilesThatCannotBeUsedAreNamed) {
    for (const auto member :
         {&TlsSettings::trustStore, &TlsSettings::crlStore, &TlsSettings::certificateFile}) {
        TlsSettings settings;
        settings.*member = "/nowhere/file.pem";
        try {
            const TlsContext context(settings);
            ADD_FAILURE() << "threw nothing";
        } catch (const WireError& error) {
            EXPECT_EQ(error.kind(), WireError::Kind::TlsSetup);
            EXPECT_NE(std::string(error.what()).find("/nowhere/file.pem"), std::string::npos) << error.what();
        }
    }
}

/// Accepts, and says nothing until the client has gone.
void listenOnly(LoopbackServer::Socket& socket) {
    char byte = 0;
    boost::system::error_code error;
    while (socket.read_some(boost::asio::buffer(&byte, 1), error) > 0) {
    }
}

TEST_F(TlsStreamTest, AHandshakeThatIsNotAnsweredIsGivenUpLongBeforeTheDeadline) {
    LoopbackServer silent(listenOnly);
    cimxml::Limits limits;
    limits.connectSilence = 50ms;
    Pegasus::CIMClientRep client(limits);
    client.setTimeout(65535000);  // 18 hours
    try {
        client.connect("127.0.0.1", silent.port(), Pegasus::SSLContext("", nullptr, ""), "", "");
        FAIL() << "connected";
    } catch (const Pegasus::CannotConnectException& exception) {
        EXPECT_EQ(std::string(exception.getMessage().getCString()),
                  "Cannot connect to 127.0.0.1:" + std::to_string(silent.port()) +
                      ". TLS handshake: no word from the server in 50 ms");
    }
    EXPECT_FALSE(client.isConnected());
}

TEST_F(TlsStreamTest, TheSilenceThatIsEnduredIsAMinute) {
    EXPECT_EQ(cimxml::Limits().connectSilence, 60s);
}

TEST_F(TlsStreamTest, AHandshakeThatIsNotAnsweredRunsOutOfTime) {
    LoopbackServer silent(listenOnly);
    const auto context = std::make_shared<const TlsContext>(TlsSettings());
    try {
        const Deadline deadline = Deadline::after(50ms);
        const TlsStream stream(TcpStream::connect("127.0.0.1", silent.port(), deadline), context, "localhost",
                               deadline);
        FAIL() << "connected";
    } catch (const WireError& error) {
        EXPECT_EQ(error.kind(), WireError::Kind::TimedOut);
    }
}

/// Takes a connection over TLS 1.2, renegotiates in the middle of what it says, and closes without the alert
/// that ought to end it.
void renegotiate(LoopbackServer::Socket& socket) {
    const std::unique_ptr<SSL_CTX, decltype(&SSL_CTX_free)> context(SSL_CTX_new(TLS_server_method()),
                                                                    SSL_CTX_free);
    SSL_CTX_set_max_proto_version(context.get(), TLS1_2_VERSION);
    cimom::Certificate::shared(cimom::Certificate::Kind::Modern).useIn(context.get());
    const std::unique_ptr<SSL, decltype(&SSL_free)> ssl(SSL_new(context.get()), SSL_free);
    SSL_set_fd(ssl.get(), static_cast<int>(socket.native_handle()));
    SSL_clear_mode(ssl.get(), SSL_MODE_AUTO_RETRY);  // a read ends when a handshake has
    char byte = 0;
    ASSERT_EQ(SSL_accept(ssl.get()), 1);
    ASSERT_EQ(SSL_write(ssl.get(), "half ", 5), 5);
    ASSERT_EQ(SSL_renegotiate(ssl.get()), 1);
    ASSERT_EQ(SSL_do_handshake(ssl.get()), 1);
    while (SSL_renegotiate_pending(ssl.get()) != 0 && SSL_read(ssl.get(), &byte, 1) <= 0) {
        ASSERT_EQ(SSL_get_error(ssl.get(), -1), SSL_ERROR_WANT_READ);
    }
    ASSERT_EQ(SSL_write(ssl.get(), "and half", 8), 8);
}

TEST_F(TlsStreamTest, ARenegotiationIsFollowedAndAnEndWithoutItsAlertIsAnEnd) {
    LoopbackServer renegotiating(renegotiate);
    const Deadline deadline = Deadline::after(10s);
    TlsStream stream(TcpStream::connect("127.0.0.1", renegotiating.port(), deadline),
                     std::make_shared<const TlsContext>(TlsSettings()), "localhost", deadline);
    std::string all;
    char buffer[64];
    while (const std::size_t count = stream.read(buffer, sizeof buffer, deadline)) {
        all.append(buffer, count);
    }
    EXPECT_EQ(all, "half and half");
    EXPECT_EQ(stream.read(buffer, sizeof buffer, deadline), 0U) << "and stays one";
}

TEST_F(TlsStreamTest, AHandshakeThatIsCutOffFails) {
    LoopbackServer closing([](LoopbackServer::Socket& socket) { socket.close(); });
    const auto context = std::make_shared<const TlsContext>(TlsSettings());
    const Deadline deadline = Deadline::after(10s);
    try {
        const TlsStream stream(TcpStream::connect("127.0.0.1", closing.port(), deadline), context,
                               "localhost", deadline);
        FAIL() << "connected";
    } catch (const WireError& error) {
        EXPECT_EQ(error.kind(), WireError::Kind::CannotConnect);
    }
}

}  // namespace
}  // namespace cimxml_test
