#pragma once

#include <chrono>
#include <ostream>
#include <string>

namespace tool {

/// The line on standard error that tells how far a long answer has come. It is redrawn in place, ten times a
/// second at most, and wiped before anything else is written to the terminal. When `enabled` is false nothing
/// is ever shown.
class Progress {
public:
    /// `error` must outlive this object. `width` is the terminal's, in columns.
    Progress(std::ostream& error, bool enabled, std::size_t width);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    bool isEnabled() const { return enabled_; }

    /// Shows a text, cut to the width; text from a server is made safe.
    void show(const std::string& text);

    /// The same at once: for what may take long before anything else is shown.
    void showNow(const std::string& text);

    /// Wipes the line, if there is one.
    void clear();

private:
    using Clock = std::chrono::steady_clock;

    std::ostream& error_;
    bool enabled_;
    std::size_t width_;
    bool shown_ = false;
    Clock::time_point drawn_;
};

}  // namespace tool
