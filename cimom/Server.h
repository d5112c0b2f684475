#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "cimom/http/Endpoint.h"
#include "cimom/http/Fault.h"
#include "cimom/http/SeenRequest.h"

namespace cimom {

/// An embedded CIM server (CIM-XML over HTTP, DSP0200 and DSP0201).
///
/// Serves any number of endpoints from one background thread of its own. The public operations may be
/// called from any one thread at a time, also while the server runs.
class Server {
public:
    Server();
    ~Server();  ///< Stops the server and closes every connection.
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    /// Binds an endpoint and returns its port. Throws std::runtime_error that names address and port when
    /// the socket cannot be bound. Endpoints may be added while the server runs.
    std::uint16_t listen(const Endpoint& endpoint);

    /// Accepts connections from now on, on a background thread.
    void start();

    /// Stops accepting, closes every connection and joins the thread. Harmless when not running.
    void stop();

    /// Closes an endpoint and its connections, as a machine node that dies does.
    void close(const std::string& address, std::uint16_t port);

    /// Adds a fault that applies to matching requests (see Fault). Faults are tried in the order added.
    void inject(const Fault& fault);
    void clearFaults();

    /// Every request seen since the start or the last clearRequests, in order of arrival. A copy.
    std::vector<SeenRequest> requests() const;
    void clearRequests();

    /// Whether requests are kept for requests(); on at first. A server that runs for long turns it off.
    void keepRequests(bool on);

    /// Calls `observer` with each request, on the server's thread, before the answer is sent; it must not
    /// call back into the server. An empty function ends that.
    void observe(std::function<void(const SeenRequest&)> observer);

    /// Number of TCP connections accepted since the start.
    std::size_t connectionsAccepted() const;

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace cimom
