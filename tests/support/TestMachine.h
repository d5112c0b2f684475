#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cimom/Server.h"

namespace NQELVSK20 {

/// A machine of several nodes for a test: one embedded server per node on a loopback address of this
/// process's own, on the ports that the plug-in fixes (5989 and 5988), so that tests run side by side.
class TestMachine {
public:
    struct Options {
        std::size_t nodes = 1;
        bool https = true;
        bool http = true;
        bool sampleData = true;  ///< The sample machine's data; false: empty repositories.
        std::optional<cimom::Credentials> credentials;
        cimom::LocalOnlyRules localOnly;                  ///< Which family of servers the nodes are like.
        std::vector<cimom::Credentials> nodeCredentials;  ///< One a node, in node order; empty: the above.
    };

    explicit TestMachine(const Options& options);
    explicit TestMachine(std::size_t nodes = 1) : TestMachine(OptionsFor(nodes)) {}

    /// Address of a node, as a host name to connect to.
    const std::string& Host(std::size_t node) const { return hosts_.at(node); }
    const std::vector<std::string>& Hosts() const { return hosts_; }

    cimom::Server& Server() { return server_; }
    cimom::Repository& Repository(std::size_t node) { return *repositories_.at(node); }

    /// Closes a node's sockets, as when the node loses power.
    void Kill(std::size_t node);

    /// The boolean option of a request as the server understands it: the one sent, else the default that
    /// DSP0200 gives it for this operation. Client libraries leave defaults out.
    bool Option(std::size_t request, const std::string& name) const;

    /// The Authorization fields that a node's server was sent, each once, in the order of their texts.
    std::vector<std::string> AuthorizationsOf(std::size_t node) const;

    /// What the servers were asked, in order: "HOSTINDEX OPERATION CLASS", e.g. "0 GetClass CIM_Fan".
    std::vector<std::string> Requests() const;
    void ClearRequests() { server_.clearRequests(); }

    /// Address of a node of this process's machines, also when there is no such machine: nothing listens
    /// there.
    static std::string AddressOf(std::size_t node);

private:
    static Options OptionsFor(std::size_t nodes);
    void Listen(std::size_t node, bool tls, std::uint16_t port, const Options& options);

    cimom::Server server_;
    std::vector<std::string> hosts_;
    std::vector<std::shared_ptr<cimom::Repository>> repositories_;
};

}  // namespace NQELVSK20
