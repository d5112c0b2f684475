#include "tools/machine/EmbeddedMachine.h"

#include <unistd.h>

#include <stdexcept>

#include "cimhttp/PegClient.h"
#include "tools/common/Failure.h"

namespace tool {

namespace {

using NQELVSK20::kHttpPort;
using NQELVSK20::kHttpsPort;

constexpr int kTries = 64;  // addresses to try for one node

// The lower half of 127.0.0.0/8 without its first 65536 addresses, which people use by hand.
std::string loopbackAddress(unsigned number) {
    number %= 126U * 256U * 254U;
    const unsigned last = number % 254U + 1;
    const unsigned third = number / 254U % 256U;
    const unsigned second = number / 254U / 256U + 1;
    return "127." + std::to_string(second) + '.' + std::to_string(third) + '.' + std::to_string(last);
}

}  // namespace

// Processes that run side by side begin far enough from each other for a machine of eight nodes.
EmbeddedMachine::EmbeddedMachine(std::size_t nodes) : nextAddress_(static_cast<unsigned>(getpid()) * 8U) {
    for (std::size_t i = 0; i < nodes; ++i) {
        addNode();
    }
    server_.start();
}

void EmbeddedMachine::addNode() {
    const auto repository = cimom::Repository::sampleNode(static_cast<unsigned>(hosts_.size()));
    for (int i = 0; i < kTries; ++i) {
        const std::string address = loopbackAddress(nextAddress_++);
        if (listenOn(address, repository)) {
            hosts_.push_back(address);
            return;
        }
    }
    throw Failure("the embedded machine finds no free loopback address: " + refusal_, Failure::Kind::kLocal);
}

bool EmbeddedMachine::listenOn(const std::string& address,
                               const std::shared_ptr<cimom::Repository>& repository) {
    if (!listen(address, kHttpsPort, true, repository)) {
        return false;
    }
    if (!listen(address, kHttpPort, false, repository)) {
        server_.close(address, kHttpsPort);
        return false;
    }
    return true;
}

bool EmbeddedMachine::listen(const std::string& address, std::uint16_t port, bool tls,
                             const std::shared_ptr<cimom::Repository>& repository) {
    cimom::Endpoint endpoint;
    endpoint.address = address;
    endpoint.port = port;
    endpoint.tls = tls;
    endpoint.repository = repository;
    try {
        server_.listen(endpoint);
        return true;
    } catch (const std::runtime_error& error) {
        refusal_ = error.what();
        return false;
    }
}

}  // namespace tool
