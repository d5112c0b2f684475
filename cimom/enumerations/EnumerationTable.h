#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace cimom {

/// Enumerations that clients have opened and not yet read to their end (DSP0200, pulled enumerations). They
/// keep what there was when they were opened, as XML, and are bounded in number, size and time.
class EnumerationTable {
public:
    using Clock = std::chrono::steady_clock;

    /// What an enumeration delivers, and with it the operation that continues it.
    enum class Kind { InstancesWithPath, InstancePaths, Instances };

    /// Open at a time, and what they may keep together.
    static constexpr std::size_t kMaxOpen = 64;
    static constexpr std::size_t kMaxBytes = std::size_t{512} << 20;

    /// What of an enumeration goes into one answer.
    struct Batch {
        std::string objects;  ///< One element after the other.
        std::string context;  ///< Empty: that was the last of them.
    };

    /// Opens an enumeration and takes the first `count` objects from it. The client has `timeout` between two
    /// of its operations. Throws CimError (server limits exceeded).
    Batch open(Kind kind, std::vector<std::string> objects, std::size_t count, std::chrono::seconds timeout,
               Clock::time_point now);

    /// Takes up to `count` further objects. Throws CimError (invalid enumeration context) when the context is
    /// not known, no longer known, or of another kind.
    Batch pull(const std::string& context, Kind kind, std::size_t count, Clock::time_point now);

    /// Throws as pull.
    void close(const std::string& context, Clock::time_point now);

private:
    struct Enumeration {
        Kind kind = Kind::InstancesWithPath;
        std::vector<std::string> objects;
        std::size_t next = 0;
        std::size_t bytes = 0;
        std::chrono::seconds timeout{0};
        Clock::time_point deadline;
    };
    using Open = std::map<std::string, Enumeration>;

    void forgetLate(Clock::time_point now);
    Open::iterator require(const std::string& context);
    void forget(Open::iterator entry);
    static std::string take(Enumeration& enumeration, std::size_t count);

    Open open_;
    std::size_t bytes_ = 0;
    std::uint64_t lastContext_ = 0;
};

}  // namespace cimom
