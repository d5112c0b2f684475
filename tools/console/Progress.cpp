#include "tools/console/Progress.h"

#include <system_error>

#include "tools/console/Terminal.h"

namespace tool {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kRedrawInterval{100};

}  // namespace

Progress::Progress(std::ostream& error, bool enabled, std::size_t width) : error_(error), width_(width) {
    if (!enabled) {
        return;
    }
    try {
        thread_ = std::thread([this] { run(); });
    } catch (const std::system_error&) {
        // A system that has no thread left shows no progress.
    }
}

Progress::~Progress() {
    if (!isEnabled()) {
        return;
    }
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        isEnded_ = true;
        draw({});
    }
    ended_.notify_one();
    thread_.join();
}

void Progress::begin(const std::string& request) {
    const std::lock_guard<std::mutex> lock(mutex_);
    text_.begin(request, Clock::now());
}

void Progress::end() {
    const std::lock_guard<std::mutex> lock(mutex_);
    text_.end();
}

void Progress::note(const std::string& text) {
    const std::lock_guard<std::mutex> lock(mutex_);
    text_.note(text);
}

void Progress::run() {
    std::unique_lock<std::mutex> lock(mutex_);
    while (!ended_.wait_for(lock, kRedrawInterval, [this] { return isEnded_; })) {
        draw(text_.at(Clock::now(), width_));
    }
}

void Progress::draw(const std::string& text) {
    if (text == shown_) {
        return;
    }
    terminal::setProgressShown(!text.empty());
    error_ << '\r' << text << "\033[K" << std::flush;
    shown_ = text;
}

Progress::Pause::Pause(Progress& progress) : lock_(progress.mutex_) {
    progress.draw({});
}

}  // namespace tool
