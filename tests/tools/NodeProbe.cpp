#include "tools/machine/NodeProbe.h"

#include <gmock/gmock.h>

#include <boost/asio/write.hpp>
#include <thread>

#include "tests/support/TestMachine.h"
#include "tests/tools/support/SilentServer.h"

namespace tool {

namespace {

using NQELVSK20::TestMachine;
using ::testing::AnyOf;
using ::testing::StartsWith;

std::vector<NodeProbe::Finding> probe(const std::vector<NodeProbe::Target>& targets) {
    return NodeProbe(std::chrono::seconds(1)).probe(targets);
}

NodeProbe::Finding probe(const std::string& host) {
    return probe(std::vector<NodeProbe::Target>{{host, true, true}}).front();
}

/// Hears the first words of one connection, says its own, and closes or resets it.
class RudeServer {
public:
    RudeServer(const std::string& address, std::string answer, bool resets)
        : acceptor_(context_, {boost::asio::ip::make_address(address), 5989}),
          answer_(std::move(answer)),
          resets_(resets),
          thread_([this] { serve(); }) {}
    ~RudeServer() { thread_.join(); }
    RudeServer(const RudeServer&) = delete;
    RudeServer& operator=(const RudeServer&) = delete;

private:
    void serve() {
        boost::asio::ip::tcp::socket socket = acceptor_.accept();
        std::string heard(4096, '\0');
        socket.read_some(boost::asio::buffer(heard));
        boost::asio::write(socket, boost::asio::buffer(answer_));
        if (resets_) {
            socket.set_option(boost::asio::socket_base::linger(true, 0));
            socket.close();  // its destructor would not reset
        }
        socket.close();  // which a destructor does without the option
    }

    boost::asio::io_context context_;
    boost::asio::ip::tcp::acceptor acceptor_;
    std::string answer_;
    bool resets_;
    std::thread thread_;
};

}  // namespace

TEST(NodeProbe, FindsServersOnBothPorts) {
    TestMachine machine;
    const NodeProbe::Finding finding = probe(machine.Host(0));
    EXPECT_EQ(finding.nameFailure, "");
    EXPECT_TRUE(finding.https.answers);
    EXPECT_TRUE(finding.http.answers);
    EXPECT_EQ(finding.https.reason + finding.http.reason, "");
    EXPECT_TRUE(machine.Server().requests().empty()) << "nothing is asked";
}

TEST(NodeProbe, TriesNoPortThatIsNotWanted) {
    TestMachine machine;
    const auto findings = probe({{machine.Host(0), true, false}, {machine.Host(0), false, true}});
    EXPECT_TRUE(findings[0].https.answers);
    EXPECT_FALSE(findings[0].http.answers);
    EXPECT_FALSE(findings[1].https.answers);
    EXPECT_TRUE(findings[1].http.answers);
    EXPECT_EQ(findings[0].http.reason + findings[1].https.reason, "");
}

TEST(NodeProbe, TellsRefusalFromSilence) {
    const SilentServer silent(TestMachine::AddressOf(1), 5989);
    const auto findings =
        probe({{TestMachine::AddressOf(0), true, true}, {TestMachine::AddressOf(1), true, true}});
    EXPECT_EQ(findings[0].https.reason, "connection refused");
    EXPECT_FALSE(findings[0].https.isSilent);
    EXPECT_EQ(findings[1].https.reason, "accepts connections, and then no TLS answer in 1 s");
    EXPECT_TRUE(findings[1].https.isSilent);
    EXPECT_EQ(findings[1].http.reason, "connection refused");
}

TEST(NodeProbe, TellsAServerWithoutTls) {
    const RudeServer server(TestMachine::AddressOf(0), "HTTP/1.1 400 Bad Request\r\n\r\n", false);
    EXPECT_THAT(probe(TestMachine::AddressOf(0)).https.reason, StartsWith("no TLS: "));
}

TEST(NodeProbe, TellsAConnectionThatIsClosed) {
    const RudeServer server(TestMachine::AddressOf(0), "", false);
    EXPECT_EQ(probe(TestMachine::AddressOf(0)).https.reason, "connection closed in the TLS handshake");
}

TEST(NodeProbe, TellsAConnectionThatIsReset) {
    const RudeServer server(TestMachine::AddressOf(0), "", true);
    EXPECT_EQ(probe(TestMachine::AddressOf(0)).https.reason, "connection reset in the TLS handshake");
}

TEST(NodeProbe, TellsANameThatNobodyKnows) {
    TestMachine machine;
    const auto findings = probe({{"no-such-host.invalid", true, true}, {machine.Host(0), true, true}});
    // Where no name server can be reached, nobody says no either.
    EXPECT_THAT(findings[0].nameFailure,
                AnyOf("its name cannot be resolved", "looking up its name takes too long"));
    EXPECT_FALSE(findings[0].https.answers);
    EXPECT_TRUE(findings[1].https.answers) << "which costs no other node its time";
}

TEST(NodeProbe, ConnectsByName) {
    EXPECT_EQ(probe("localhost").nameFailure, "");
}

}  // namespace tool
