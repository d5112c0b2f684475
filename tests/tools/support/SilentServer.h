#pragma once

#include <boost/asio/buffer.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/address.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/read.hpp>
#include <cstdint>
#include <string>

namespace tool {

/// A controller that hangs: its system accepts connections, and nobody ever says anything on them.
class SilentServer {
public:
    SilentServer(const std::string& address, std::uint16_t port)
        : acceptor_(context_, {boost::asio::ip::make_address(address), port}) {}

    /// What somebody said to it on the connection that waits first, as far as it has come.
    std::string heard() {
        boost::asio::ip::tcp::socket socket = acceptor_.accept();
        std::string text(socket.available(), '\0');
        boost::asio::read(socket, boost::asio::buffer(text));
        return text;
    }

private:
    boost::asio::io_context context_;
    boost::asio::ip::tcp::acceptor acceptor_;
};

}  // namespace tool
