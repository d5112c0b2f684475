#include "tools/machine/PortProbe.h"

#include <openssl/ssl.h>

#include <boost/asio/connect.hpp>
#include <boost/asio/error.hpp>
#include <boost/asio/ip/address.hpp>
#include <boost/asio/ssl/error.hpp>

namespace tool {

namespace {

namespace asio = boost::asio;
using boost::system::error_code;

bool isAddress(const std::string& host) {
    error_code error;
    asio::ip::make_address(host, error);
    return !error;
}

bool isEnd(const error_code& error) {
    return error == asio::error::eof || error == asio::ssl::error::stream_truncated;
}

bool isUnreachable(const error_code& error) {
    return error == asio::error::host_unreachable || error == asio::error::network_unreachable ||
           error == asio::error::network_down;
}

}  // namespace

void PortProbe::start(const Endpoints& endpoints, bool overTls, const std::string& host) {
    const auto connected = [this, overTls, host](const error_code& error, const auto& /*endpoint*/) {
        if (error || !overTls) {
            end(error);
        } else {
            shakeHands(host);
        }
    };
    asio::async_connect(stream_.next_layer(), endpoints, connected);
}

void PortProbe::shakeHands(const std::string& host) {
    isConnected_ = true;
    if (!isAddress(host)) {
        SSL_set_tlsext_host_name(stream_.native_handle(), host.c_str());
    }
    stream_.async_handshake(asio::ssl::stream_base::client, [this](const error_code& error) { end(error); });
}

void PortProbe::end(const error_code& error) {
    if (error != asio::error::operation_aborted) {
        error_ = error;
    }
}

void PortProbe::stop() {
    error_code ignored;
    stream_.next_layer().close(ignored);
}

std::string PortProbe::reason() const {
    if (isSilent()) {
        return isConnected_ ? "accepts connections, and then no TLS answer" : "no answer";
    }
    if (*error_ == asio::error::connection_refused) {
        return "connection refused";
    }
    if (isUnreachable(*error_)) {
        return "unreachable";
    }
    if (isEnd(*error_)) {
        return "connection closed in the TLS handshake";
    }
    if (*error_ == asio::error::connection_reset || *error_ == asio::error::broken_pipe) {
        return isConnected_ ? "connection reset in the TLS handshake" : "connection reset";
    }
    if (*error_ == asio::error::timed_out) {
        return "no answer";
    }
    return isConnected_ ? "no TLS: " + error_->message() : error_->message();
}

}  // namespace tool
