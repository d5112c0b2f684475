#include "tools/machine/RequestStatistics.h"

namespace tool {

using NQELVSK20::ClientRequest;

void RequestStatistics::begun(const ClientRequest& /*request*/, Clock::time_point when) {
    open_.push_back({when, {}});
}

void RequestStatistics::ended(const ClientRequest& request, bool answered, Clock::time_point when) {
    if (open_.empty()) {
        return;
    }
    const Open ending = open_.back();
    open_.pop_back();
    Count& count = counts_[{request.node, request.operation}];
    ++count.requests;
    count.failures += answered ? 0 : 1;
    count.time += when - ending.since - ending.within;
    if (!open_.empty()) {
        open_.back().within += when - ending.since;
    }
}

RequestStatistics::Count RequestStatistics::total() const {
    Count total;
    for (const auto& [key, count] : counts_) {
        total.requests += count.requests;
        total.failures += count.failures;
        total.time += count.time;
    }
    return total;
}

}  // namespace tool
