#pragma once

#include <chrono>
#include <string>

#include "cimom/Server.h"

/// A server that speaks plain HTTP on the port where TLS is expected: it waits for a request, the client for
/// a handshake, until the server closes.
class ServerWithoutTls {
public:
    explicit ServerWithoutTls(const std::string& address) {
        cimom::Endpoint endpoint;
        endpoint.address = address;
        endpoint.repository = cimom::Repository::sampleNode(0);
        endpoint.port = 5989;
        endpoint.idleLimit = std::chrono::milliseconds(300);
        server_.listen(endpoint);
        server_.start();
    }

    cimom::Server& server() { return server_; }

private:
    cimom::Server server_;
};
