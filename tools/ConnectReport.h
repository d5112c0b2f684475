#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "tools/LogLine.h"
#include "tools/Options.h"

namespace tool {

/// How the connection of each node went, read from the plug-in's log: a namespace counts as connected even
/// when no node answered.
class ConnectReport {
public:
    struct Outcome {
        std::string httpsFailure;  ///< Empty: not tried, or it went well.
        std::string httpFailure;
        bool reached = false;
        bool overHttps = false;  ///< The protocol in use; has a meaning for a node that was reached.
    };

    explicit ConnectReport(std::size_t nodes) : outcomes_(nodes) {}

    /// The next node is being connected.
    void beginNode() { ++begun_; }

    /// A connection attempt of the node begun last failed.
    void add(const ClientFailure& failure);

    /// The node begun last has lost its connection and is connected anew: only what comes now counts.
    void beginAgain();

    /// All attempts were made, over what `transport` says.
    void finish(Transport transport);

    /// The node begun last.
    std::size_t currentNode() const { return begun_ == 0 ? 0 : begun_ - 1; }
    const std::vector<Outcome>& outcomes() const { return outcomes_; }

private:
    std::vector<Outcome> outcomes_;  // in node order
    std::size_t begun_ = 0;
};

}  // namespace tool
