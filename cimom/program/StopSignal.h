#pragma once

#include <memory>

namespace cimom {

/// Waits for SIGINT or SIGTERM, which from its making on no longer end the process.
class StopSignal {
public:
    StopSignal();
    ~StopSignal();
    StopSignal(const StopSignal&) = delete;
    StopSignal& operator=(const StopSignal&) = delete;

    /// Returns when one of the signals arrives or has arrived already.
    void wait();

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace cimom
