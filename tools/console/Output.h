#pragma once

#include <ostream>
#include <string_view>

#include "tools/console/Progress.h"

namespace tool {

/// Whoever read the output has seen enough and closed it, as `head` does. Not a failure.
class OutputClosed {};

/// Standard output. The progress line gives way to it. Throws OutputClosed when the reader went away and
/// Failure when the output cannot be written for another reason.
class Output {
public:
    /// `stream` and `progress` must outlive this object. On a terminal every piece is shown at once.
    Output(std::ostream& stream, Progress& progress, bool isTerminal);

    bool isTerminal() const { return isTerminal_; }

    void write(std::string_view text);
    void line(std::string_view text);

    /// Hands on what is still buffered.
    void flush();

private:
    void check();

    std::ostream& stream_;
    Progress& progress_;
    bool isTerminal_;
    int error_ = 0;  // of the first write that failed: those that follow do not get to the system
};

}  // namespace tool
