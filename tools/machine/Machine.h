#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "tools/machine/Node.h"

namespace tool {

/// The machine that is asked: its nodes, and how each is reached.
class Machine {
public:
    /// How a node is reached, and why not otherwise.
    struct Link {
        std::string httpsFailure;  ///< Empty: not tried, or it went well.
        std::string httpFailure;
        bool reached = false;
        bool overHttps = false;  ///< The protocol in use; has a meaning for a node that was reached.

        /// Both, with a blank between.
        std::string failures() const;
    };

    explicit Machine(std::vector<Node> nodes) : nodes_(std::move(nodes)), links_(nodes_.size()) {}

    const std::vector<Node>& nodes() const { return nodes_; }
    Link& link(std::size_t node) { return links_.at(node); }
    const Link& link(std::size_t node) const { return links_.at(node); }

    /// A node for messages: HOST:PORT, or HOST alone before it is reached; with its number when there are
    /// several.
    std::string where(std::size_t node) const;

private:
    std::vector<Node> nodes_;
    std::vector<Link> links_;  // in node order
};

}  // namespace tool
