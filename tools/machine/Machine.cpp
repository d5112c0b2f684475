#include "tools/machine/Machine.h"

#include <algorithm>
#include <numeric>

#include "cimhttp/PegClient.h"

namespace tool {

Machine::Machine(std::vector<Node> nodes)
    : nodes_(std::move(nodes)), links_(nodes_.size()), asked_(nodes_.size()) {
    std::iota(asked_.begin(), asked_.end(), std::size_t{0});
}

void Machine::leaveOut(std::size_t node) {
    asked_.erase(std::remove(asked_.begin(), asked_.end(), node), asked_.end());
}

std::string Machine::Link::failures() const {
    if (httpsFailure == httpFailure) {
        return httpsFailure;
    }
    return httpsFailure + (httpsFailure.empty() || httpFailure.empty() ? "" : "; ") + httpFailure;
}

std::string Machine::where(std::size_t node) const {
    const std::string& host = nodes_.at(node).host;
    const Link& link = links_[node];
    const int port = link.overHttps ? NQELVSK20::kHttpsPort : NQELVSK20::kHttpPort;
    const std::string text = link.reached ? hostAndPort(host, port) : host;
    return nodes_.size() == 1 ? text : "node " + std::to_string(node + 1) + " (" + text + ")";
}

}  // namespace tool
