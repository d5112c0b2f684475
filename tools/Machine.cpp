#include "tools/Machine.h"

#include "connection/Ports.h"

namespace tool {

std::string Machine::where(std::optional<std::size_t> node) const {
    if (!node || *node >= nodes_.size()) {
        return "one of the " + std::to_string(nodes_.size()) + " nodes";
    }
    const std::string& host = nodes_[*node].host;
    std::string text = host;
    if (*node < outcomes_.size() && outcomes_[*node].reached) {
        text = hostAndPort(host, outcomes_[*node].overHttps ? NQELVSK20::kHttpsPort : NQELVSK20::kHttpPort);
    }
    return nodes_.size() == 1 ? text : "node " + std::to_string(*node + 1) + " (" + text + ")";
}

}  // namespace tool
