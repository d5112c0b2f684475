#include "cimxml/wire/HttpSession.h"

#include "cimxml/wire/Percent.h"
#include "cimxml/wire/WireError.h"

namespace cimxml {

namespace {

constexpr std::size_t usualHeaderSize = 512;

/// Host and port as the Host field has them (RFC 9110, 7.2): IPv6 in brackets, without its zone.
std::string formatHost(const std::string& host, std::uint32_t port) {
    std::string name = host;
    if (name.find(':') != std::string::npos && name.front() != '[') {
        name = "[" + name.substr(0, name.find('%')) + "]";
    }
    return name + ":" + std::to_string(port);
}

}  // namespace

void HttpSession::connect(Connector connector, const std::string& host, std::uint32_t port,
                          BasicAuthentication authentication, Deadline deadline) {
    auto connection = open(connector, deadline);
    connector_ = std::move(connector);
    hostField_ = formatHost(host, port);
    authentication_ = std::move(authentication);
    connection_ = std::move(connection);
    reconnect_ = false;
}

void HttpSession::disconnect() {
    connection_.reset();
    connector_ = nullptr;
    authentication_ = BasicAuthentication();
    reconnect_ = false;
}

void HttpSession::drop() {
    connection_.reset();
    reconnect_ = true;
}

HttpResponse HttpSession::call(const CimRequest& request, Deadline deadline) {
    if (connection_ && !connection_->isIdle()) {
        drop();
        authentication_.startAnew();
    }
    HttpResponse response = exchange(request, deadline);
    if (authentication_.accepts(response)) {
        response = exchange(request, deadline);
    }
    return response;
}

void HttpSession::ensureConnected(Deadline deadline) {
    if (!connection_) {
        connection_ = open(connector_, deadline);
        reconnect_ = false;
    }
}

std::unique_ptr<HttpConnection> HttpSession::open(const Connector& connector, Deadline deadline) const {
    try {
        return std::make_unique<HttpConnection>(connector(deadline), limits_);
    } catch (const WireError& error) {
        // Who waits in vain for a connection is not connected; a time-out is about answers.
        if (error.kind() == WireError::Kind::TimedOut) {
            throw WireError(WireError::Kind::CannotConnect, error.what());
        }
        throw;
    }
}

HttpResponse HttpSession::exchange(const CimRequest& request, Deadline deadline) {
    ensureConnected(deadline);
    try {
        HttpResponse response = connection_->exchange(format(request).view(), deadline);
        if (!response.keepAlive) {
            drop();
        }
        return response;
    } catch (const WireError& error) {
        drop();
        if (error.kind() == WireError::Kind::TimedOut) {
            authentication_.startAnew();
        }
        throw;
    }
}

Secret HttpSession::format(const CimRequest& request) const {
    const Secret credentials = authentication_.field();
    Secret text;
    text.reserve(usualHeaderSize + credentials.view().size() + request.body.size());
    text.append("POST /cimom HTTP/1.1\r\nHost: ").append(hostField_);
    text.append("\r\nContent-Type: application/xml; charset=\"utf-8\"\r\nContent-Length: ");
    text.append(std::to_string(request.body.size()));
    text.append("\r\nTE: trailers\r\nCIMOperation: MethodCall\r\nCIMMethod: ")
        .append(percentEncode(request.method));
    text.append("\r\nCIMObject: ").append(percentEncode(request.object)).append("\r\n");
    text.append(credentials.view()).append("\r\n").append(request.body);
    return text;
}

}  // namespace cimxml
