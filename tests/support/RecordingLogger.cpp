#include "tests/support/RecordingLogger.h"

#include <algorithm>
#include <iterator>

#include "vskcore/THostSetup.h"

namespace NQELVSK20 {

RecordingLogger::RecordingLogger() {
    THostSetup::SetCoreLogger(this);
}

RecordingLogger::~RecordingLogger() {
    THostSetup::SetCoreLogger(nullptr);
}

std::vector<RecordingLogger::Line> RecordingLogger::LinesWith(const std::string& prefix) const {
    std::vector<Line> found;
    std::copy_if(lines_.begin(), lines_.end(), std::back_inserter(found),
                 [&](const Line& line) { return line.second.compare(0, prefix.size(), prefix) == 0; });
    return found;
}

}  // namespace NQELVSK20
