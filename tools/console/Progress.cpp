#include "tools/console/Progress.h"

#include "tools/common/SafeText.h"
#include "tools/console/Terminal.h"

namespace tool {

namespace {

constexpr std::chrono::milliseconds kRedrawInterval{100};

}  // namespace

Progress::Progress(std::ostream& error, bool enabled, std::size_t width)
    : error_(error), enabled_(enabled), width_(width) {}

Progress::~Progress() {
    clear();
}

void Progress::show(const std::string& text) {
    if (enabled_ && Clock::now() - drawn_ >= kRedrawInterval) {
        showNow(text);
    }
}

void Progress::showNow(const std::string& text) {
    if (!enabled_) {
        return;
    }
    // The last column stays free: some terminals go to the next line when it is written to.
    const std::size_t room = width_ > 1 ? width_ - 1 : 0;
    drawn_ = Clock::now();
    shown_ = true;
    terminal::setProgressShown(true);
    error_ << '\r' << cutTo(safeText(text), room) << "\033[K" << std::flush;
}

void Progress::clear() {
    if (shown_) {
        error_ << "\r\033[K" << std::flush;
        shown_ = false;
        terminal::setProgressShown(false);
    }
}

}  // namespace tool
