#include "cimxml/wire/SocketWait.h"

#include <gtest/gtest.h>

#include <boost/asio/buffer.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/write.hpp>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <future>
#include <thread>

#include "cimxml/wire/WireError.h"
#include "tests/cimxml/wire_LoopbackServer.h"

#if !defined(_WIN32)
#include <pthread.h>
#endif

namespace cimxml_test {
namespace {

namespace asio = boost::asio;
using asio::ip::tcp;
using cimxml::Deadline;
using cimxml::waitFor;
using cimxml::WireError;
using Socket = LoopbackServer::Socket;
using namespace std::chrono_literals;

class SocketWaitTest : public testing::Test {
protected:
    tcp::socket& connectTo(const LoopbackServer& server) {
        client_.connect({asio::ip::make_address("127.0.0.1"), static_cast<std::uint16_t>(server.port())});
        return client_;
    }

    bool timesOut(tcp::socket::wait_type wanted, std::chrono::milliseconds time) {
        try {
            waitFor(client_, wanted, Deadline::after(time));
            return false;
        } catch (const WireError& error) {
            EXPECT_EQ(error.kind(), WireError::Kind::TimedOut);
            return true;
        }
    }

private:
    asio::io_context context_;
    tcp::socket client_{context_};
};

TEST_F(SocketWaitTest, EndsWhenThereIsWhatWasWaitedFor) {
    std::promise<void> speak;
    std::promise<void> end;
    LoopbackServer server([&](Socket& socket) {
        speak.get_future().wait();
        asio::write(socket, asio::buffer("x", 1));
        end.get_future().wait();
    });
    connectTo(server);
    EXPECT_FALSE(timesOut(tcp::socket::wait_write, 10s));
    EXPECT_TRUE(timesOut(tcp::socket::wait_read, 1ms));
    speak.set_value();
    EXPECT_FALSE(timesOut(tcp::socket::wait_read, 10s));
    end.set_value();
}

TEST_F(SocketWaitTest, EndsWhenTheConnectionDoes) {
    LoopbackServer server([](Socket&) {});
    connectTo(server);
    EXPECT_FALSE(timesOut(tcp::socket::wait_read, 10s));
}

TEST_F(SocketWaitTest, DoesNotLookOnceTheDeadlineHasPassed) {
    std::promise<void> end;
    LoopbackServer server([&](Socket&) { end.get_future().wait(); });
    connectTo(server);
    EXPECT_TRUE(timesOut(tcp::socket::wait_write, 0ms));
    end.set_value();
}

#if !defined(_WIN32)
TEST_F(SocketWaitTest, GoesOnAfterASignal) {
    struct sigaction noticed = {};
    noticed.sa_handler = [](int) {};
    struct sigaction before = {};
    ASSERT_EQ(sigaction(SIGUSR1, &noticed, &before), 0);
    const pthread_t waiting = pthread_self();
    LoopbackServer server([&](Socket& socket) {
        for (int i = 0; i < 5; ++i) {
            std::this_thread::sleep_for(2ms);
            pthread_kill(waiting, SIGUSR1);
        }
        asio::write(socket, asio::buffer("x", 1));
    });
    tcp::socket& client = connectTo(server);
    EXPECT_FALSE(timesOut(tcp::socket::wait_read, 10s));
    EXPECT_EQ(client.available(), 1U);
    sigaction(SIGUSR1, &before, nullptr);
}
#endif

}  // namespace
}  // namespace cimxml_test
