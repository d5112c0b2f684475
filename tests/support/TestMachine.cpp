#include "tests/support/TestMachine.h"

#include <unistd.h>

#include <algorithm>
#include <set>

namespace NQELVSK20 {

namespace {

constexpr std::uint16_t kTlsPort = 5989;
constexpr std::uint16_t kPlainPort = 5988;
constexpr std::size_t kNodesPerProcess = 7;

}  // namespace

TestMachine::Options TestMachine::OptionsFor(std::size_t nodes) {
    Options options;
    options.nodes = nodes;
    return options;
}

std::string TestMachine::AddressOf(std::size_t node) {
    const auto pid = static_cast<unsigned>(getpid());
    const unsigned last = ((pid & 0x1fU) << 3U) + static_cast<unsigned>(node % kNodesPerProcess) + 1;
    return "127." + std::to_string(128 + ((pid >> 13U) & 0x7fU)) + '.' + std::to_string((pid >> 5U) & 0xffU) +
           '.' + std::to_string(last);
}

TestMachine::TestMachine(const Options& options) {
    for (std::size_t node = 0; node < options.nodes; ++node) {
        hosts_.push_back(AddressOf(node));
        repositories_.push_back(options.sampleData
                                    ? cimom::Repository::sampleNode(static_cast<unsigned>(node))
                                    : std::make_shared<cimom::Repository>());
        if (options.https) {
            Listen(node, true, kTlsPort, options);
        }
        if (options.http) {
            Listen(node, false, kPlainPort, options);
        }
    }
    server_.start();
}

void TestMachine::Listen(std::size_t node, bool tls, std::uint16_t port, const Options& options) {
    cimom::Endpoint endpoint;
    endpoint.address = hosts_[node];
    endpoint.port = port;
    endpoint.tls = tls;
    endpoint.repository = repositories_[node];
    endpoint.credentials = options.nodeCredentials.empty() ? options.credentials
                                                           : std::optional(options.nodeCredentials.at(node));
    endpoint.localOnly = options.localOnly;
    server_.listen(endpoint);
}

void TestMachine::Kill(std::size_t node) {
    server_.close(Host(node), kTlsPort);
    server_.close(Host(node), kPlainPort);
}

bool TestMachine::Option(std::size_t request, const std::string& name) const {
    cimom::SeenRequest seen = server_.requests().at(request);
    seen.body.erase(std::remove(seen.body.begin(), seen.body.end(), '\n'), seen.body.end());
    const std::string sent = "<IPARAMVALUE NAME=\"" + name + "\"><VALUE>";
    const std::size_t at = seen.body.find(sent);
    if (at != std::string::npos) {
        return seen.body.compare(at + sent.size(), 4, "TRUE") == 0;
    }
    const std::string& operation = seen.operation;
    return name == "LocalOnly" || (name == "DeepInheritance" && operation == "EnumerateInstances") ||
           (name == "IncludeQualifiers" && operation == "GetClass");
}

std::vector<std::string> TestMachine::AuthorizationsOf(std::size_t node) const {
    static const std::string kField = "\r\nAuthorization: ";
    std::set<std::string> seen;
    for (const cimom::SeenRequest& request : server_.requests()) {
        const std::size_t at = request.head.find(kField);
        if (request.address == hosts_.at(node) && at != std::string::npos) {
            const std::size_t from = at + kField.size();
            seen.insert(request.head.substr(from, request.head.find("\r\n", from) - from));
        }
    }
    return {seen.begin(), seen.end()};
}

std::vector<std::string> TestMachine::Requests() const {
    std::vector<std::string> seen;
    for (const cimom::SeenRequest& request : server_.requests()) {
        const auto host = std::find(hosts_.begin(), hosts_.end(), request.address);
        seen.push_back(std::to_string(host - hosts_.begin()) + ' ' + request.operation + ' ' +
                       request.className);
    }
    return seen;
}

}  // namespace NQELVSK20
