// The CIM server as a program: serves the sample machine's nodes until it is told to stop.

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>
#endif

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <exception>
#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "cimom/Server.h"
#include "cimom/program/Options.h"
#include "cimom/program/StopSignal.h"
#include "cimom/snapshot/Snapshot.h"

namespace {

using cimom::Endpoint;
using cimom::Options;

std::string readFile(const std::string& name) {
    std::ifstream file(name, std::ios::binary);
    if (!file) {
        throw std::runtime_error("cannot read " + name);
    }
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::string readPassword(const std::string& name) {
    const std::string text = readFile(name);
    return text.substr(0, text.find_first_of("\r\n"));
}

using Repositories = std::vector<std::shared_ptr<cimom::Repository>>;

/// An address for each node to be served.
std::vector<std::string> addressesFor(const Options& options, const Repositories& snapshot) {
    std::vector<std::string> addresses = options.addresses;
    for (std::size_t node = 0; options.addresses.empty() && node < std::max<std::size_t>(1, snapshot.size());
         ++node) {
        addresses.push_back("127.0.0." + std::to_string(node + 1));
    }
    if (options.snapshot.empty() || addresses.size() == snapshot.size()) {
        return addresses;
    }
    const std::string difference = std::to_string(addresses.size()) + " addresses for the " +
                                   std::to_string(snapshot.size()) + " nodes of " + options.snapshot;
    if (addresses.size() > snapshot.size()) {
        throw std::runtime_error(difference);
    }
    std::fprintf(stderr, "cimom: warning: %s\n", difference.c_str());
    return addresses;
}

/// What a node of the machine holds: that of the snapshot, or of the sample machine when there is none.
std::shared_ptr<cimom::Repository> makeRepository(const Options& options, const Repositories& snapshot,
                                                  std::size_t node) {
    auto repository =
        snapshot.empty() ? cimom::Repository::sampleNode(static_cast<unsigned>(node)) : snapshot[node];
    for (const Options::Load& load : options.load) {
        repository->addDeclarations(load.nameSpace, readFile(load.file), load.file);
    }
    for (const Options::Multiply& multiply : options.multiply) {
        repository->multiplyInstances("root/cimv2", multiply.className, multiply.count);
    }
    return repository;
}

std::string url(const Endpoint& endpoint, std::uint16_t port) {
    const bool ipv6 = endpoint.address.find(':') != std::string::npos;
    return std::string(endpoint.tls ? "https" : "http") + "://" + (ipv6 ? "[" : "") + endpoint.address +
           (ipv6 ? "]" : "") + ":" + std::to_string(port);
}

bool isLoopback(const std::string& address) {
    return address.compare(0, 4, "127.") == 0 || address == "::1";
}

void listen(cimom::Server& server, const Endpoint& endpoint, std::size_t node) {
    const std::uint16_t port = server.listen(endpoint);
    std::printf("Node %zu ready at %s\n", node, url(endpoint, port).c_str());
}

void listenEverywhere(cimom::Server& server, const Options& options) {
    const Repositories snapshot = options.snapshot.empty()
                                      ? Repositories()
                                      : cimom::readSnapshot(readFile(options.snapshot), options.snapshot);
    const std::vector<std::string> addresses = addressesFor(options, snapshot);
    for (std::size_t node = 0; node < addresses.size(); ++node) {
        Endpoint endpoint;
        endpoint.address = addresses[node];
        endpoint.repository = makeRepository(options, snapshot, node);
        endpoint.localOnly = options.localOnly;
        endpoint.sendNullOutputs = false;
        endpoint.idleLimit = std::chrono::seconds(options.idleSeconds);
        if (!options.user.empty()) {
            endpoint.credentials = cimom::Credentials{options.user, readPassword(options.passwordFile)};
        }
        if (options.http) {
            endpoint.port = options.httpPort;
            listen(server, endpoint, node);
        }
        if (options.https) {
            endpoint.port = options.httpsPort;
            endpoint.tls = true;
            listen(server, endpoint, node);
        }
        if (!isLoopback(endpoint.address)) {
            std::fprintf(stderr, "cimom: warning: %s can be reached from other machines\n",
                         endpoint.address.c_str());
        }
    }
}

void printRequest(const cimom::SeenRequest& request) {
    std::printf("%s:%u %s %s %d\n", request.address.c_str(), static_cast<unsigned>(request.port),
                request.operation.empty() ? "-" : request.operation.c_str(),
                request.className.empty() ? "-" : request.className.c_str(), request.status);
    std::fflush(stdout);
}

int serve(const Options& options) {
    // Before the server's thread starts, so that the signals reach this one.
    cimom::StopSignal stop;
    cimom::Server server;
    server.keepRequests(false);
    if (options.log) {
        server.observe(printRequest);
    }
    listenEverywhere(server, options);
    server.start();
    std::fflush(stdout);
    stop.wait();
    return 0;
}

/// Lines end the same everywhere.
void writeAsItIs() {
#if defined(_WIN32)
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
#endif
}

}  // namespace

int main(int argc, char** argv) {
    writeAsItIs();
    try {
        Options options;
        if (const auto status = cimom::readOptions(argc, argv, options)) {
            return *status;
        }
        return serve(options);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "cimom: %s\n", error.what());
        return 1;
    }
}
