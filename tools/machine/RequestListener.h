#pragma once

#include <chrono>

#include "cimhttp/ClientObserver.h"

namespace tool {

/// Hears of every request as it begins and ends, with the node's number in the machine, from 0. One may
/// begin within another, as a new connection does where a request's broke.
class RequestListener {
public:
    using Clock = std::chrono::steady_clock;

    virtual ~RequestListener() = default;

    virtual void begun(const NQELVSK20::ClientRequest& request, Clock::time_point when) = 0;

    /// That which was begun last.
    virtual void ended(const NQELVSK20::ClientRequest& request, bool answered, Clock::time_point when) = 0;
};

}  // namespace tool
