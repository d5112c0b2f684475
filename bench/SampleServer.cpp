#include "bench/SampleServer.h"

#include <stdexcept>

#include "bench/ReplayServer.h"
#include "bench/Sample.h"

namespace bench {

SampleServer::SampleServer() {
    const ReplayServer::Endpoint sample = SampleNode(0, 0);
    cimom::Endpoint endpoint;
    endpoint.address = Address();
    endpoint.port = sample.port;
    endpoint.repository = sample.fill();
    server_.listen(endpoint);
    server_.start();
}

std::string SampleServer::Address() {
    constexpr unsigned beyondReplayServers = 100;
    return ReplayServer::Address(beyondReplayServers);
}

std::vector<std::string> SampleServer::Requests() const {
    std::vector<std::string> requests;
    for (const cimom::SeenRequest& seen : server_.requests()) {
        requests.push_back(seen.head + "\r\n" + seen.body);
    }
    if (requests.empty()) {
        throw std::runtime_error("no request was seen");
    }
    return requests;
}

}  // namespace bench
