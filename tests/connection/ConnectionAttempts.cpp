// How often a server is connected to when a request fails in a way that another attempt does not change: as
// often as the policy says, and not once more.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cimhttp/PegClient.h"
#include "tests/support/PluginTest.h"
#include "tests/support/ServerWithoutTls.h"

namespace NQELVSK20 {
namespace {

using FaultKind = cimom::Fault::Kind;

/// A failure that stays, and what the policy makes of one request then.
struct LastingFailure {
    const char* name;
    FaultKind kind;
    int code;
    const char* text;
    std::size_t requests;
    std::size_t pauses;
    std::size_t connections;  // the first one included
};

void PrintTo(const LastingFailure& failure, std::ostream* out) {
    *out << failure.name;
}

// Both attempts of a broken request are followed by a pause and a connection; a CIM error is an answer. After
// a time-out the second attempt goes on, over a new connection, since the answer may still come over the old
// one.
const LastingFailure kLastingFailures[] = {
    {"Http501", FaultKind::HttpStatus, 501, "Not Implemented", 2, 2, 3},
    {"NoCimServer", FaultKind::RawAnswer, 0,
     "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nContent-Length: 4\r\n\r\n<p/>", 2, 2, 3},
    {"NoHttp", FaultKind::RawAnswer, 0, "SSH-2.0-OpenSSH_9.2\r\n", 2, 2, 3},
    {"MalformedXml", FaultKind::MalformedXml, 0, "", 2, 2, 3},
    {"ClosedInPlaceOfAnAnswer", FaultKind::CloseBeforeAnswer, 0, "", 2, 2, 3},
    {"CimError", FaultKind::CimError, 7, "not supported", 1, 0, 1},
    {"NoAnswer", FaultKind::NoAnswer, 0, "", 2, 0, 2}};

class ConnectionAttempts : public PluginTest, public ::testing::WithParamInterface<LastingFailure> {};

TEST_P(ConnectionAttempts, AreThoseOfThePolicyForARequestThatKeepsFailing) {
    TestMachine machine;
    PegClient client;
    ASSERT_TRUE(client.Connect(machine.Host(0), "", ""));
    cimom::Fault fault;
    fault.kind = GetParam().kind;
    fault.code = GetParam().code;
    fault.text = GetParam().text;
    machine.Server().inject(fault);
    if (GetParam().kind == FaultKind::NoAnswer) {
        shortened_ = 1000;
    }
    EXPECT_TRUE(client.EnumerateClassNames("root/cimv2", "", false, 5000).empty());
    EXPECT_EQ(machine.Server().requests().size(), GetParam().requests);
    EXPECT_EQ(pauses_, std::vector<unsigned int>(GetParam().pauses, 5000));
    EXPECT_EQ(machine.Server().connectionsAccepted(), GetParam().connections);
}

INSTANTIATE_TEST_SUITE_P(LastingFailures, ConnectionAttempts, ::testing::ValuesIn(kLastingFailures),
                         [](const auto& failure) { return std::string(failure.param.name); });

using RefusedConnections = PluginTest;

TEST_F(RefusedConnections, OfAServerWithoutTlsWhereTlsIsExpectedAreOneOfEachProtocol) {
    const std::string address = TestMachine::AddressOf(0);
    ServerWithoutTls plain(address);
    PegClient client;
    EXPECT_FALSE(client.Connect(address, "", ""));
    EXPECT_EQ(plain.server().connectionsAccepted(), 1U);
    EXPECT_EQ(log_.LinesWith("CannotConnectException in PegClient::HTTPSConnect(): ").size(), 1U);
    EXPECT_EQ(log_.LinesWith("CannotConnectException in PegClient::HTTPConnect(): ").size(), 1U);
    EXPECT_TRUE(client.EnumerateClassNames("root/cimv2", "", false, 5000).empty());
    EXPECT_EQ(plain.server().connectionsAccepted(), 1U)
        << "a client that is not connected connects to nobody";
    EXPECT_TRUE(pauses_.empty());
}

}  // namespace
}  // namespace NQELVSK20
