#include "tools/console/Notices.h"

#include "tools/common/SafeText.h"

namespace tool {

namespace {

// Some log lines end with a newline of their own.
std::string withoutFinalNewline(std::string text) {
    while (!text.empty() && text.back() == '\n') {
        text.pop_back();
    }
    return text;
}

}  // namespace

void Notices::say(const std::string& text) {
    last_ = text;
    if (said_.insert(text).second) {
        write("cimhttp: " + text);
    }
}

void Notices::fail(const std::string& text) {
    ++failures_;
    say(text);
}

void Notices::trace(const std::string& text) {
    write(text);
}

void Notices::write(const std::string& text) {
    const Progress::Pause pause(progress_);
    error_ << safeText(withoutFinalNewline(text)) << std::endl;
}

}  // namespace tool
