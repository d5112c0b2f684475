#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <cstdint>
#include <functional>
#include <string>
#include <thread>

namespace cimxml_test {

/// A TCP server for one connection: `serve` gets it on a thread of the server's own.
class LoopbackServer {
public:
    using Socket = boost::asio::ip::tcp::socket;

    explicit LoopbackServer(std::function<void(Socket&)> serve, const std::string& address = "127.0.0.1");
    ~LoopbackServer();
    LoopbackServer(const LoopbackServer&) = delete;
    LoopbackServer& operator=(const LoopbackServer&) = delete;

    std::uint16_t port() const { return acceptor_.local_endpoint().port(); }

private:
    boost::asio::io_context context_;
    boost::asio::ip::tcp::acceptor acceptor_;
    std::thread thread_;
};

}  // namespace cimxml_test
