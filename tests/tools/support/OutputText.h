#pragma once

#include <sstream>
#include <string>

#include "tools/console/Output.h"
#include "tools/console/Progress.h"

namespace tool {

/// An output that keeps what is written to it.
class OutputText {
public:
    explicit OutputText(bool isTerminal = false)
        : progress_(error_, false, 0), output_(stream_, progress_, isTerminal) {}

    Output& output() { return output_; }
    std::string text() const { return stream_.str(); }

private:
    std::ostringstream stream_;
    std::ostringstream error_;
    Progress progress_;
    Output output_;
};

}  // namespace tool
