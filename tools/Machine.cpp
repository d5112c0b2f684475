#include "tools/Machine.h"

#include "cimhttp/PegClient.h"

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

std::optional<std::size_t> Machine::nodeNamedIn(const std::string& message) const {
    const std::string words = ' ' + message;
    for (std::size_t i = 0; i < nodes_.size(); ++i) {
        const std::string address = hostAndPort(nodes_[i].host, NQELVSK20::kHttpsPort);
        if (words.find(' ' + address) != std::string::npos) {
            return i;
        }
    }
    return std::nullopt;
}

bool Machine::isOverHttps(std::size_t node) const {
    return node < outcomes_.size() && outcomes_[node].reached && outcomes_[node].overHttps;
}

void Machine::setOverHttps(std::size_t node, bool overHttps) {
    if (node < outcomes_.size()) {
        outcomes_[node].reached = true;
        outcomes_[node].overHttps = overHttps;
    }
}

}  // namespace tool
