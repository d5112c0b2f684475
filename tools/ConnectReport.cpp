#include "tools/ConnectReport.h"

namespace tool {

void ConnectReport::add(const ClientFailure& failure) {
    if (currentNode() >= outcomes_.size()) {
        return;
    }
    Outcome& outcome = outcomes_[currentNode()];
    (failure.operation == "HTTPSConnect" ? outcome.httpsFailure : outcome.httpFailure) = failure.message;
}

void ConnectReport::beginAgain() {
    if (currentNode() < outcomes_.size()) {
        outcomes_[currentNode()] = Outcome();
    }
}

void ConnectReport::finish(Transport transport) {
    for (std::size_t i = 0; i < outcomes_.size() && i < begun_; ++i) {
        Outcome& outcome = outcomes_[i];
        outcome.overHttps = transport != Transport::kHttp && outcome.httpsFailure.empty();
        outcome.reached =
            outcome.overHttps || (transport != Transport::kHttps && outcome.httpFailure.empty());
    }
}

}  // namespace tool
