#pragma once

#include <sys/types.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace bench {

/// One way of doing a piece of work, in a process of its own, so that its memory is its own too.
class Contestant {
public:
    /// Does the work once and returns what it counted, e.g. instances.
    using Work = std::function<std::size_t()>;

    /// Starts the process. `prepare` is called there; it connects and warms up and returns the work; two of
    /// them never prepare at the same time. Must be made before the calling process starts a thread. Throws
    /// std::runtime_error.
    Contestant(std::string name, const std::function<Work()>& prepare);
    ~Contestant();
    Contestant(Contestant&& other) noexcept;
    Contestant& operator=(Contestant&&) = delete;

    /// Has the work done once. Throws std::runtime_error when the process failed.
    void RunOnce();
    /// Drops what was measured so far, e.g. of a first round, which warms up.
    void Forget() {
        seconds_.clear();
        processorSeconds_.clear();
    }
    /// Ends the process, which tells its peak memory then.
    void Finish();

    const std::string& Name() const { return name_; }
    const std::vector<double>& Seconds() const { return seconds_; }  ///< Of each round.
    double Quickest() const;                                         ///< In seconds.
    /// Seconds of processor time in the round that took least: what a crowded machine disturbs less.
    double LeastProcessorTime() const;
    std::size_t Count() const { return count_; }     ///< What the last round counted.
    double PeakBytes() const { return peakBytes_; }  ///< After Finish.

private:
    void Read(void* data, std::size_t size) const;

    std::string name_;
    pid_t process_ = -1;
    int channel_ = -1;
    std::vector<double> seconds_;
    std::vector<double> processorSeconds_;
    std::size_t count_ = 0;
    double peakBytes_ = 0;
};

}  // namespace bench
