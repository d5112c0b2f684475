#include "cimom/Server.h"

#include <gtest/gtest.h>

#include <atomic>
#include <boost/asio/error.hpp>
#include <stdexcept>
#include <thread>

#include "tests/cimom/support/ServerFixture.h"
#include "tests/cimom/support/SmallNameSpace.h"

namespace cimom {
namespace {

using test::RawConnection;

class ServerTest : public test::ServerFixture {};

TEST_F(ServerTest, TakesAnyFreePort) {
    const std::uint16_t one = listen();
    const std::uint16_t other = listen();
    EXPECT_NE(one, 0);
    EXPECT_NE(one, other);
    EXPECT_EQ(ask(one, instancesRequest()).status, 200);
    EXPECT_EQ(ask(other, instancesRequest()).status, 200);
}

TEST_F(ServerTest, NamesAddressAndPortThatItCannotBind) {
    Endpoint endpoint;
    endpoint.port = listen();
    try {
        listen(endpoint);
        FAIL() << "the port was bound twice";
    } catch (const std::runtime_error& error) {
        const boost::system::error_code inUse = boost::asio::error::address_in_use;
        EXPECT_EQ(std::string(error.what()), "cannot listen on 127.0.0.1 port " +
                                                 std::to_string(endpoint.port) + ": " + inUse.message());
    }
    endpoint.address = "machine";
    EXPECT_THROW(listen(endpoint), std::runtime_error);
    Endpoint empty;
    EXPECT_THROW(server_.listen(empty), std::runtime_error) << "no repository";
}

TEST_F(ServerTest, ListensOnIpv6) {
    Endpoint endpoint;
    endpoint.address = "::1";
    const std::uint16_t port = listen(endpoint);
    RawConnection connection("::1", port);
    connection.send(instancesRequest());
    EXPECT_EQ(connection.readAnswer().status, 200);
    EXPECT_EQ(server_.requests().at(0).address, "::1");
}

TEST_F(ServerTest, ServesEachEndpointItsOwnData) {
    Endpoint endpoint;
    endpoint.repository = std::make_shared<Repository>();
    endpoint.repository->addDeclarations(
        "root/cimv2", test::declarations(test::object("<CLASS NAME=\"Base\"/>")), "empty.xml");
    endpoint.address = "127.0.0.2";
    const std::uint16_t port = listen(endpoint);
    RawConnection connection("127.0.0.2", port);
    connection.send(instancesRequest());
    EXPECT_EQ(connection.readAnswer().body.find("<INSTANCENAME"), std::string::npos);
    EXPECT_NE(ask(listen(), instancesRequest()).body.find("<INSTANCENAME"), std::string::npos);
}

TEST_F(ServerTest, RemembersRequestsAsTheyCame) {
    const std::uint16_t port = listen();
    const std::string request = instancesRequest("X-Odd:  spaced \r\n");
    ask(port, request);
    ask(port, "GET / HTTP/1.1\r\nHost: h\r\n\r\n");
    const auto seen = server_.requests();
    ASSERT_EQ(seen.size(), 2U);
    EXPECT_EQ(seen[0].address, "127.0.0.1");
    EXPECT_EQ(seen[0].port, port);
    EXPECT_EQ(seen[0].head + "\r\n" + seen[0].body, request);
    EXPECT_EQ(seen[0].operation, "EnumerateInstanceNames");
    EXPECT_EQ(seen[0].className, "Base");
    EXPECT_EQ(seen[0].status, 200);
    EXPECT_EQ(seen[1].operation, "");
    EXPECT_EQ(seen[1].status, 405);
    server_.clearRequests();
    EXPECT_TRUE(server_.requests().empty());
}

TEST_F(ServerTest, StopsKeepingRequestsWhenTold) {
    const std::uint16_t port = listen();
    server_.keepRequests(false);
    ask(port, instancesRequest());
    EXPECT_TRUE(server_.requests().empty());
}

TEST_F(ServerTest, ShowsRequestsToAnObserver) {
    const std::uint16_t port = listen();
    std::string operation;
    server_.observe([&](const SeenRequest& request) { operation = request.operation; });
    ask(port, instancesRequest());
    EXPECT_EQ(operation, "EnumerateInstanceNames");
}

TEST_F(ServerTest, CountsConnections) {
    const std::uint16_t port = listen();
    ask(port, instancesRequest());
    ask(port, instancesRequest());
    EXPECT_EQ(server_.connectionsAccepted(), 2U);
}

TEST_F(ServerTest, ClosesAnEndpointWithItsConnections) {
    const std::uint16_t dying = listen();
    const std::uint16_t living = listen();
    RawConnection idle = connect(dying);
    idle.send(instancesRequest());
    EXPECT_EQ(idle.readAnswer().status, 200);
    server_.close("127.0.0.1", dying);
    EXPECT_EQ(idle.readToEnd(), "");
    EXPECT_THROW(connect(dying), std::runtime_error);
    EXPECT_EQ(ask(living, instancesRequest()).status, 200);
    server_.close("127.0.0.1", dying);
    Endpoint again;
    again.port = dying;
    EXPECT_EQ(listen(again), dying);
}

TEST_F(ServerTest, StopsAndStartsAgain) {
    const std::uint16_t first = listen();
    RawConnection idle = connect(first);
    idle.send(instancesRequest());
    EXPECT_EQ(idle.readAnswer().status, 200);
    server_.stop();
    server_.stop();
    EXPECT_EQ(idle.readToEnd(), "");
    EXPECT_THROW(connect(first), std::runtime_error);
    const std::uint16_t second = listen();
    server_.start();
    server_.start();
    EXPECT_EQ(ask(second, instancesRequest()).status, 200);
}

TEST(Server, MayBeDestroyedWithoutHavingRun) {
    Server server;
    Endpoint endpoint;
    endpoint.repository = std::make_shared<Repository>();
    EXPECT_NE(server.listen(endpoint), 0);
}

TEST(Server, AnswersWhatCameBeforeItsStart) {
    Server server;
    Endpoint endpoint;
    endpoint.repository = Repository::sampleNode(0);
    RawConnection connection("127.0.0.1", server.listen(endpoint));
    connection.send(test::intrinsicRequest("EnumerateClassNames", {}));
    server.start();
    EXPECT_EQ(connection.readAnswer().status, 200);
}

TEST_F(ServerTest, ServesManyClientsAtOnce) {
    Endpoint endpoint;
    endpoint.repository = Repository::sampleNode(0);
    const std::uint16_t port = listen(endpoint);
    std::vector<std::thread> clients;
    std::atomic<int> answered{0};
    for (int i = 0; i < 8; ++i) {
        clients.emplace_back([&] {
            RawConnection connection = connect(port);
            for (int n = 0; n < 20; ++n) {
                connection.send(test::intrinsicRequest(
                    "EnumerateInstances", {{"ClassName", test::classNameXml("OMC_NumericSensor")}}));
                answered += connection.readAnswer().complete ? 1 : 0;
            }
        });
    }
    for (std::thread& client : clients) {
        client.join();
    }
    EXPECT_EQ(answered, 160);
}

TEST_F(ServerTest, DeliversTenThousandInstances) {
    Endpoint endpoint;
    endpoint.repository = Repository::sampleNode(0);
    endpoint.repository->multiplyInstances("root/cimv2", "OMC_NumericSensor", 10000);
    const test::RawAnswer answer = ask(
        listen(endpoint), test::intrinsicRequest("EnumerateInstances",
                                                 {{"ClassName", test::classNameXml("OMC_NumericSensor")}}));
    ASSERT_TRUE(answer.complete);
    std::size_t count = 0;
    const std::string open = "<VALUE.NAMEDINSTANCE>";
    for (auto at = answer.body.find(open); at != std::string::npos; at = answer.body.find(open, at + 1)) {
        ++count;
    }
    EXPECT_EQ(count, 10000U);
}

}  // namespace
}  // namespace cimom
