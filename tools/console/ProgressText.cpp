#include "tools/console/ProgressText.h"

#include "tools/common/SafeText.h"

namespace tool {

namespace {

constexpr std::chrono::milliseconds kPatience{500};

std::string withSeconds(const std::string& text, std::chrono::steady_clock::duration passed) {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(passed).count();
    return seconds == 0 ? text : text + ", " + std::to_string(seconds) + " s";
}

}  // namespace

void ProgressText::begin(const std::string& request, Time now) {
    running_.push_back({request, now});
}

void ProgressText::end() {
    running_.pop_back();
}

std::string ProgressText::wordsAt(Time now) const {
    if (now - start_ < kPatience) {
        return {};
    }
    if (running_.empty() || now - running_.back().begun < kPatience) {
        return note_;
    }
    return withSeconds(running_.back().text, now - running_.back().begun);
}

std::string ProgressText::at(Time now, std::size_t width) const {
    // The last column stays free: some terminals go to the next line when it is written to.
    return cutTo(safeText(wordsAt(now)), width > 1 ? width - 1 : 0);
}

}  // namespace tool
