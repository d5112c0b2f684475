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

        /// Both, with a semicolon between; one when they are the same.
        std::string failures() const;
    };

    explicit Machine(std::vector<Node> nodes);

    const std::vector<Node>& nodes() const { return nodes_; }

    /// The nodes that the plug-in is given, in the order in which it numbers them: at first all. What is said
    /// to a person counts all nodes.
    const std::vector<std::size_t>& asked() const { return asked_; }
    void leaveOut(std::size_t node);
    void askOnly(std::size_t node) { asked_ = {node}; }

    /// The first of them, whom the plug-in asks for definitions and names.
    std::size_t first() const { return asked_.front(); }

    Link& link(std::size_t node) { return links_.at(node); }
    const Link& link(std::size_t node) const { return links_.at(node); }

    /// A node for messages: HOST:PORT, or HOST alone before it is reached; with its number when there are
    /// several.
    std::string where(std::size_t node) const;

private:
    std::vector<Node> nodes_;
    std::vector<Link> links_;  // in node order
    std::vector<std::size_t> asked_;
};

}  // namespace tool
