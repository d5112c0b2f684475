#include "tools/console/Output.h"

#include <cctype>
#include <cerrno>
#include <cstring>
#include <string>

#include "tools/common/Failure.h"
#include "tools/console/Terminal.h"

namespace tool {

namespace {

// The C library's words begin with a capital, as no message of ours does after a colon.
std::string reasonOf(int error) {
    std::string reason = std::strerror(error);
    reason[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(reason[0])));
    return reason;
}

}  // namespace

Output::Output(std::ostream& stream, Progress& progress, bool isTerminal)
    : stream_(stream), progress_(progress), isTerminal_(isTerminal) {}

void Output::write(std::string_view text) {
    const Progress::Pause pause(progress_);
    errno = 0;
    stream_ << text;
    if (isTerminal_) {
        stream_.flush();
    }
    check();
}

void Output::line(std::string_view text) {
    write(std::string(text) += '\n');
}

void Output::flush() {
    errno = 0;
    stream_.flush();
    check();
}

void Output::check() {
    if (stream_) {
        return;
    }
    if (error_ == 0) {
        error_ = errno;
    }
    if (terminal::lostReader(error_)) {
        throw OutputClosed();
    }
    throw Failure("cannot write: " + reasonOf(error_), Failure::Kind::kLocal);
}

}  // namespace tool
