#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/ssl/context.hpp>
#include <boost/asio/ssl/stream.hpp>
#include <boost/system/error_code.hpp>
#include <optional>
#include <string>
#include <vector>

namespace tool {

/// One attempt to get through to a server: a TCP connection and, for HTTPS, a TLS handshake. Nothing else is
/// sent. It goes on while its context runs, until it is stopped at the latest.
class PortProbe {
public:
    using Endpoints = std::vector<boost::asio::ip::tcp::endpoint>;

    /// The contexts must outlive the probe.
    PortProbe(boost::asio::io_context& context, boost::asio::ssl::context& tls) : stream_(context, tls) {}
    PortProbe(const PortProbe&) = delete;
    PortProbe& operator=(const PortProbe&) = delete;

    /// Begins: the endpoints of one host are tried one after the other. With `overTls` the server is told
    /// `host` in the handshake.
    void start(const Endpoints& endpoints, bool overTls, const std::string& host);

    /// Closes the connection, whether it got through or not.
    void stop();

    bool gotThrough() const { return error_ && !*error_; }

    /// Neither through nor refused yet.
    bool isSilent() const { return !error_; }

    /// Why it did not get through.
    std::string reason() const;

private:
    void shakeHands(const std::string& host);
    void end(const boost::system::error_code& error);

    boost::asio::ssl::stream<boost::asio::ip::tcp::socket> stream_;
    bool isConnected_ = false;
    std::optional<boost::system::error_code> error_;
};

}  // namespace tool
