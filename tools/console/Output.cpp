#include "tools/console/Output.h"

#include <cerrno>
#include <cstring>
#include <string>

#include "tools/common/Failure.h"
#include "tools/console/Terminal.h"

namespace tool {

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
    if (terminal::lostReader(errno)) {
        throw OutputClosed();
    }
    throw Failure(std::string("cannot write the output: ") + std::strerror(errno));
}

}  // namespace tool
