#pragma once

#include <algorithm>
#include <chrono>

namespace cimxml {

/// The moment until which an operation with all its steps must be done. A value; cheap to copy.
class Deadline {
public:
    using Clock = std::chrono::steady_clock;

    /// The deadline that ends `timeout` from now.
    static Deadline after(std::chrono::milliseconds timeout) { return Deadline(Clock::now() + timeout); }

    /// Time that is left, zero once the deadline has passed.
    Clock::duration remaining() const { return std::max(Clock::duration::zero(), end_ - Clock::now()); }

    /// The earlier of this deadline and the one that ends `most` from now.
    Deadline within(std::chrono::milliseconds most) const {
        return Deadline(std::min(end_, Clock::now() + most));
    }

private:
    explicit Deadline(Clock::time_point end) : end_(end) {}

    Clock::time_point end_;
};

}  // namespace cimxml
