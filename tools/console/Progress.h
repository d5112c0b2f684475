#pragma once

#include <condition_variable>
#include <mutex>
#include <ostream>
#include <string>
#include <thread>

#include "tools/console/ProgressText.h"

namespace tool {

/// The line on standard error that tells what a person waits for (ProgressText). A thread of its own draws
/// it, since the program's waits for servers. When `enabled` is false nothing is ever shown, and there is no
/// such thread.
class Progress {
public:
    /// `error` must outlive this object. `width` is the terminal's, in columns.
    Progress(std::ostream& error, bool enabled, std::size_t width);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    bool isEnabled() const { return thread_.joinable(); }

    void begin(const std::string& request);
    void end();

    /// Text from a server is made safe.
    void note(const std::string& text);

    /// Keeps the line off the terminal as long as it lives, for whoever writes to it, on whichever stream.
    class Pause {
    public:
        explicit Pause(Progress& progress);

    private:
        std::unique_lock<std::mutex> lock_;  // the drawing thread waits
    };

private:
    void run();
    void draw(const std::string& text);

    std::ostream& error_;
    const std::size_t width_;
    std::mutex mutex_;  // of all below and of `error_`
    std::condition_variable ended_;
    bool isEnded_ = false;
    ProgressText text_{std::chrono::steady_clock::now()};
    std::string shown_;  // empty: there is no line
    std::thread thread_;
};

}  // namespace tool
