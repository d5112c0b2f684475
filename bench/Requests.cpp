#include "bench/Requests.h"

#include <stdexcept>

#include "bench/ReplayServer.h"
#include "cimom/Server.h"

namespace bench {

namespace {

constexpr unsigned kRecordingNumber = 100;
constexpr std::uint16_t kRecordingPort = 5988;

}  // namespace

std::string RecordingAddress() {
    return ReplayServer::Address(kRecordingNumber);
}

std::vector<std::string> RecordRequests(const std::function<void(const std::function<void()>& begin)>& work) {
    cimom::Endpoint endpoint;
    endpoint.address = RecordingAddress();
    endpoint.port = kRecordingPort;
    endpoint.repository = cimom::Repository::sampleNode(0);
    cimom::Server server;
    server.listen(endpoint);
    server.start();
    work([&] { server.clearRequests(); });
    std::vector<std::string> requests;
    for (const cimom::SeenRequest& seen : server.requests()) {
        requests.push_back(seen.head + "\r\n" + seen.body);
    }
    if (requests.empty()) {
        throw std::runtime_error("no request was recorded");
    }
    return requests;
}

}  // namespace bench
