#pragma once

#include <boost/shared_ptr.hpp>
#include <map>
#include <string>
#include <vector>

namespace NQELVSK20 {

class ClientObserver;
class PegClient;

/// One controller node of the machine that a namespace is connected to.
struct RemoteNode {
    std::size_t index;  ///< Zero-based, in the order in which the nodes were given to `connect`.
    std::string key;    ///< The controller's number plus one, in decimal.
    PegClient& client;  ///< Belongs to the namespace's Nodes.
};

/// What is known of a server as a VMware ESXi host.
struct Hypervisor {
    bool isEsxi = false;
    bool isEsxi5 = false;  ///< Version 5 or later.
};

/// The nodes of a namespace in node order: a client each, under the key of the controller that serves it, and
/// what they were last connected with.
///
/// Copies share the clients; the last one frees those of nodes 1 and up. The client of node 0 lives until the
/// process ends.
class Nodes {
public:
    /// One map per node with one entry: the node key and the node's client.
    using Clients = std::vector<std::map<std::string, PegClient*>>;

    /// Appends a node with node 0's client, which is made the first time.
    void AppendFirst();

    /// Appends node `index` with a client of its own when it is beyond the last one. Not without any node:
    /// the first one comes from AppendFirst alone.
    void AppendIfMissing(std::size_t index);

    /// The client of a node; null when there is no such node.
    PegClient* Client(std::size_t index) const;

    /// Node 0's client; null before AppendFirst.
    PegClient* First() const { return first_; }

    const Clients& All() const { return clients_; }
    std::vector<RemoteNode> Connected() const;

    /// Asks node 0 whether it is a hypervisor.
    ///
    /// Runs once a process, for the first namespace that gets here; any later one asks nothing and keeps what
    /// it has: kept, hosts rely on it. Without a node 0 the answer is no.
    void DetectHypervisor();
    const Hypervisor& Detected() const { return hypervisor_; }

    /// Disconnects every node and forgets all but the first.
    void Disconnect();

    /// Disconnects the nodes whose clients `kept` does not share; nobody observes those any more.
    void DisconnectAllBut(const Nodes& kept);

    /// In milliseconds, for every node's client.
    void SetTimeout(unsigned int milliseconds);

    /// Who hears of the clients' failures, of those that come later too; not owned. Null: nobody.
    void Observe(ClientObserver* observer);

private:
    ClientObserver* observer_ = nullptr;
    PegClient* first_ = nullptr;
    Hypervisor hypervisor_;
    Clients clients_;
    std::vector<boost::shared_ptr<PegClient>> owned_;  // those of nodes 1 and up, in node order
};

/// Whether the detection has run; for tests, which want it anew or out of their way.
bool& HypervisorDetectionDone();

/// What a namespace was last connected with: one element per node, and the port of the last single node.
struct Credentials {
    std::vector<std::string> hosts;
    std::vector<std::string> users;
    std::vector<std::string> passwords;
    unsigned int port = 0;
};

}  // namespace NQELVSK20
