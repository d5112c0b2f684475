#include "tools/machine/NodeProbe.h"

#include <openssl/ssl.h>

#include <boost/asio/io_context.hpp>
#include <boost/asio/ssl/context.hpp>
#include <cstddef>
#include <memory>

#include "cimhttp/PegClient.h"
#include "tools/machine/HostLookup.h"
#include "tools/machine/PortProbe.h"

namespace tool {

namespace {

namespace asio = boost::asio;
using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kLookUpTurn{10};  // how long one name is waited for at a time

// Lets in what old controllers offer, as the connections do that follow.
asio::ssl::context makeTlsContext() {
    asio::ssl::context context(asio::ssl::context::tls_client);
    SSL_CTX_set_min_proto_version(context.native_handle(), TLS1_VERSION);
    SSL_CTX_set_cipher_list(context.native_handle(), "ALL:!aNULL:!eNULL:@SECLEVEL=0");
    SSL_CTX_set_options(context.native_handle(), SSL_OP_LEGACY_SERVER_CONNECT);
    context.set_verify_mode(asio::ssl::verify_none);
    return context;
}

PortProbe::Endpoints endpointsOf(const HostLookup::Addresses& addresses, int port) {
    PortProbe::Endpoints endpoints;
    for (const auto& address : addresses) {
        endpoints.emplace_back(address, static_cast<std::uint16_t>(port));
    }
    return endpoints;
}

/// One node: what was found out about its name, and its two ports.
struct NodeAttempt {
    const NodeProbe::Target& target;
    HostLookup lookup;
    bool isLookedUp = false;
    std::string nameFailure = "looking up its name takes too long";
    std::unique_ptr<PortProbe> https = nullptr;  // also when it is not wanted
    std::unique_ptr<PortProbe> http = nullptr;
};

NodeProbe::Port portOf(const PortProbe* probe, std::chrono::seconds timeout) {
    if (probe == nullptr) {
        return {};
    }
    if (probe->gotThrough()) {
        return {true, false, {}};
    }
    const std::string time = probe->isSilent() ? " in " + std::to_string(timeout.count()) + " s" : "";
    return {false, probe->isSilent(), probe->reason() + time};
}

/// All attempts of one call, side by side.
class Attempts {
public:
    explicit Attempts(std::chrono::seconds timeout) : timeout_(timeout), end_(Clock::now() + timeout) {}

    std::vector<NodeProbe::Finding> make(const std::vector<NodeProbe::Target>& targets) {
        for (const NodeProbe::Target& target : targets) {
            nodes_.push_back({target, HostLookup(target.host)});
        }
        // One name that takes long must not cost the others their time.
        while (!startKnown() && Clock::now() < end_) {
            context_.restart();
            context_.poll();
        }
        context_.restart();
        context_.run_until(end_);
        const std::vector<NodeProbe::Finding> found = findings();
        stop();
        return found;
    }

private:
    /// Starts the nodes whose addresses have become known; true when there are no others left.
    bool startKnown() {
        bool areAllKnown = true;
        for (NodeAttempt& node : nodes_) {
            if (!node.isLookedUp) {
                if (const auto addresses = node.lookup.resultBy(Clock::now() + kLookUpTurn)) {
                    start(node, *addresses);
                }
            }
            areAllKnown = areAllKnown && node.isLookedUp;
        }
        return areAllKnown;
    }

    void start(NodeAttempt& node, const HostLookup::Addresses& addresses) {
        node.isLookedUp = true;
        if (addresses.empty()) {
            node.nameFailure = "its name cannot be resolved";
            return;
        }
        node.nameFailure.clear();
        if (node.target.overHttps) {
            node.https = std::make_unique<PortProbe>(context_, tls_);
            node.https->start(endpointsOf(addresses, NQELVSK20::kHttpsPort), true, node.target.host);
        }
        if (node.target.overHttp) {
            node.http = std::make_unique<PortProbe>(context_, tls_);
            node.http->start(endpointsOf(addresses, NQELVSK20::kHttpPort), false, node.target.host);
        }
    }

    std::vector<NodeProbe::Finding> findings() const {
        std::vector<NodeProbe::Finding> found;
        for (const NodeAttempt& node : nodes_) {
            found.push_back(
                {node.nameFailure, portOf(node.https.get(), timeout_), portOf(node.http.get(), timeout_)});
        }
        return found;
    }

    // The handlers refer to the probes until they have been told of the end.
    void stop() {
        for (const NodeAttempt& node : nodes_) {
            for (PortProbe* probe : {node.https.get(), node.http.get()}) {
                if (probe != nullptr) {
                    probe->stop();
                }
            }
        }
        context_.restart();
        context_.run();
    }

    std::chrono::seconds timeout_;
    Clock::time_point end_;
    asio::io_context context_{1};
    asio::ssl::context tls_ = makeTlsContext();
    std::vector<NodeAttempt> nodes_;
};

}  // namespace

std::vector<NodeProbe::Finding> NodeProbe::probe(const std::vector<Target>& targets) const {
    return Attempts(timeout_).make(targets);
}

}  // namespace tool
