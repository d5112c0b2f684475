#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "tools/machine/RequestListener.h"

namespace tool {

/// How many requests each node was sent, how long they took and how many failed, by operation. The time of a
/// request within another is its own: times can be added.
class RequestStatistics : public RequestListener {
public:
    struct Count {
        std::size_t requests = 0;
        std::size_t failures = 0;
        Clock::duration time{};
    };
    /// By node and operation.
    using Counts = std::map<std::pair<std::size_t, std::string>, Count>;

    const Counts& counts() const { return counts_; }

    /// Of all nodes and operations.
    Count total() const;

    void begun(const NQELVSK20::ClientRequest& request, Clock::time_point when) override;
    void ended(const NQELVSK20::ClientRequest& request, bool answered, Clock::time_point when) override;

private:
    struct Open {
        Clock::time_point since;
        Clock::duration within{};  // of the requests that began and ended meanwhile
    };

    std::vector<Open> open_;
    Counts counts_;
};

}  // namespace tool
