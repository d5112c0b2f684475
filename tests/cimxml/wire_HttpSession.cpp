#include "cimxml/wire/HttpSession.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "cimxml/wire/WireError.h"
#include "tests/cimxml/wire_ScriptedServer.h"

namespace cimxml_test {
namespace {

using cimxml::Deadline;
using cimxml::HttpSession;
using cimxml::WireError;

const std::string ok = "HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n";
const std::string unauthorized = "HTTP/1.1 401 No\r\nContent-Length: 0\r\n\r\n";

Exchange closing(const std::string& bytes) {
    Exchange exchange(bytes);
    exchange.close = true;
    return exchange;
}

Exchange closingWhenIdle(const std::string& bytes) {
    Exchange exchange(bytes);
    exchange.closeWhenIdle = true;
    return exchange;
}

class HttpSessionTest : public testing::Test {
protected:
    static Deadline deadline() { return Deadline::after(std::chrono::seconds(10)); }

    void connect(ScriptedServer& server, const std::string& host = "host") {
        session.connect(server.connector(), host, 5989, cimxml::BasicAuthentication("u", "p"), deadline());
    }

    unsigned call() { return session.call({"Do", "root", "<x/>"}, deadline()).status; }

    WireError::Kind failure() {
        try {
            call();
        } catch (const WireError& error) {
            return error.kind();
        }
        ADD_FAILURE() << "threw nothing";
        return WireError::Kind::BadResponse;
    }

    HttpSession session{cimxml::Limits()};
};

TEST_F(HttpSessionTest, IsOpenFromConnectToDisconnect) {
    ScriptedServer server({});
    EXPECT_FALSE(session.isOpen());
    connect(server);
    EXPECT_TRUE(session.isConnected());
    EXPECT_TRUE(session.isOpen());
    session.disconnect();
    EXPECT_FALSE(session.isConnected());
    EXPECT_FALSE(session.isOpen());
}

TEST_F(HttpSessionTest, NamesTheHost) {
    for (const auto& [host, field] :
         {std::pair("host", "Host: host:5989\r\n"), std::pair("::1", "Host: [::1]:5989\r\n"),
          std::pair("[fe80::2]", "Host: [fe80::2]:5989\r\n"),
          std::pair("fe80::1%eth0", "Host: [fe80::1]:5989\r\n")}) {
        ScriptedServer server({Exchange(ok)});
        session.disconnect();
        connect(server, host);
        call();
        EXPECT_NE(server.requests().at(0).find(field), std::string::npos) << server.requests().at(0);
    }
}

TEST_F(HttpSessionTest, KeepsItsConnection) {
    ScriptedServer server({Exchange(ok), Exchange(ok), Exchange(ok)});
    connect(server);
    call();
    call();
    call();
    EXPECT_EQ(server.connections(), 1U);
}

TEST_F(HttpSessionTest, ReplacesAConnectionThatEndedWhileIdle) {
    ScriptedServer server({closingWhenIdle(ok), Exchange(ok)});
    connect(server);
    call();
    EXPECT_EQ(call(), 200U);
    EXPECT_EQ(server.connections(), 2U);
}

TEST_F(HttpSessionTest, DoesNotSendAgainWhatMayHaveArrived) {
    ScriptedServer server({closing(""), Exchange(ok)});
    connect(server);
    EXPECT_EQ(failure(), WireError::Kind::Closed);
    EXPECT_EQ(server.requests().size(), 1U);
    EXPECT_FALSE(session.isConnected());
    EXPECT_TRUE(session.isOpen());
    EXPECT_EQ(call(), 200U);
    EXPECT_EQ(server.connections(), 2U);
}

TEST_F(HttpSessionTest, DoesNotSendAgainWhenTheConnectionEndsAfterThe401) {
    ScriptedServer server({Exchange(unauthorized), closing("")});
    connect(server);
    EXPECT_EQ(failure(), WireError::Kind::Closed);
    EXPECT_EQ(server.requests().size(), 2U);
}

TEST_F(HttpSessionTest, ReportsAReconnectThatFails) {
    ScriptedServer server({closingWhenIdle(ok), Exchange(ok)});
    connect(server);
    call();
    server.refuseConnections();
    EXPECT_EQ(failure(), WireError::Kind::CannotConnect);
    EXPECT_EQ(failure(), WireError::Kind::CannotConnect);
    EXPECT_TRUE(session.isOpen());
}

TEST_F(HttpSessionTest, ForgetsCredentialsWithDisconnect) {
    ScriptedServer server({Exchange(unauthorized), Exchange(ok), Exchange(ok)});
    connect(server);
    EXPECT_EQ(call(), 200U);
    session.disconnect();
    connect(server);
    EXPECT_EQ(call(), 200U);
    EXPECT_EQ(server.requests().at(2).find("Authorization"), std::string::npos);
}

TEST_F(HttpSessionTest, ConnectingInVainIsNoTimeOut) {
    const auto slow = [](Deadline) -> std::unique_ptr<cimxml::ByteStream> {
        throw WireError(WireError::Kind::TimedOut, "too slow");
    };
    try {
        session.connect(slow, "host", 1, {}, deadline());
        FAIL() << "connected";
    } catch (const WireError& error) {
        EXPECT_EQ(error.kind(), WireError::Kind::CannotConnect);
        EXPECT_STREQ(error.what(), "too slow");
    }
    EXPECT_FALSE(session.isOpen());
}

}  // namespace
}  // namespace cimxml_test
