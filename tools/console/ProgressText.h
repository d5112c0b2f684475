#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace tool {

/// What a person is told of work under way, at any moment: the request that runs, once it has run for half a
/// second, with the seconds since it began; else how far the work has come.
class ProgressText {
public:
    using Time = std::chrono::steady_clock::time_point;

    /// Nothing is told in the first half second from `start` on.
    explicit ProgressText(Time start) : start_(start) {}

    /// A request begins, perhaps within another.
    void begin(const std::string& request, Time now);

    /// The one that began last is over.
    void end();

    /// How far the work has come.
    void note(const std::string& text) { note_ = text; }

    /// The text, safe for a terminal and at most `width` columns wide, 0 being no limit; empty: nothing.
    std::string at(Time now, std::size_t width) const;

private:
    struct Request {
        std::string text;
        Time begun;
    };

    std::string wordsAt(Time now) const;

    const Time start_;
    std::vector<Request> running_;  // each within the one before it
    std::string note_;
};

}  // namespace tool
