#pragma once

#include <windows.h>

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <string>
#include <thread>

namespace support {

/// Reads one output of a program as it comes, on a thread of its own: pipes cannot be waited for together.
class OutputReader {
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    /// Closes the output after so many bytes.
    explicit OutputReader(std::size_t closeAfter);
    ~OutputReader();
    OutputReader(const OutputReader&) = delete;
    OutputReader& operator=(const OutputReader&) = delete;

    /// The end that the program writes to; to be closed here once the program has it.
    HANDLE writer() const { return writer_; }
    void start();

    std::string text() const;

    /// Waits until there is more than so many bytes; false when the output closed or the time ended before.
    bool waitForMore(std::size_t than, TimePoint until);

    /// False when the time ended before the output was closed.
    bool waitForEnd(TimePoint until);

private:
    void read();

    std::size_t closeAfter_;
    HANDLE reader_ = nullptr;
    HANDLE writer_ = nullptr;
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    std::string text_;
    bool closed_ = false;
    std::thread thread_;
};

}  // namespace support
