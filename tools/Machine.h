#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tools/ConnectReport.h"
#include "tools/Node.h"

namespace tool {

/// The machine that is asked: its nodes, and how each is reached once they are connected.
class Machine {
public:
    explicit Machine(std::vector<Node> nodes) : nodes_(std::move(nodes)) {}

    const std::vector<Node>& nodes() const { return nodes_; }

    void setOutcomes(std::vector<ConnectReport::Outcome> outcomes) { outcomes_ = std::move(outcomes); }

    /// A node for messages: HOST:PORT, or HOST alone before it is connected; with its number when there are
    /// several. No node: one of them.
    std::string where(std::optional<std::size_t> node) const;

    /// The node whose address, with the port of HTTPS, stands in a message; none when no node's does.
    std::optional<std::size_t> nodeNamedIn(const std::string& message) const;

    /// Whether a node is reached over HTTPS; false before it is connected.
    bool isOverHttps(std::size_t node) const;

    /// A node was connected anew, over the protocol told.
    void setOverHttps(std::size_t node, bool overHttps);

private:
    std::vector<Node> nodes_;
    std::vector<ConnectReport::Outcome> outcomes_;  // empty before the nodes are connected
};

}  // namespace tool
