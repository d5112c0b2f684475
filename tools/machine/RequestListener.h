#pragma once

#include <chrono>
#include <cstddef>
#include <string>

#include "cimhttp/ClientObserver.h"

namespace tool {

/// Hears of every request as it begins and ends, with the node's number in the machine, from 0. One may
/// begin within another, as a new connection does where a request's broke.
class RequestListener {
public:
    using Clock = std::chrono::steady_clock;

    virtual ~RequestListener() = default;

    virtual void begun(const NQELVSK20::ClientRequest& request, Clock::time_point when) = 0;

    /// An attempt at that which was begun last failed; the next one may be answered.
    virtual void failed(const NQELVSK20::ClientFailure& /*failure*/) {}

    /// What the answer holds of the request that ended last: so many instances, or the definition of a class.
    virtual void received(std::size_t /*instances*/) {}
    virtual void defined(const std::string& /*className*/) {}

    /// That which was begun last.
    virtual void ended(const NQELVSK20::ClientRequest& request, bool answered, Clock::time_point when) = 0;
};

}  // namespace tool
