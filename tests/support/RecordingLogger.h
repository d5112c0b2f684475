#pragma once

#include <string>
#include <utility>
#include <vector>

#include "vskcore/ILogger.h"

namespace NQELVSK20 {

/// The core logger of a test: keeps every line, with its level, as long as it lives.
class RecordingLogger : public ILogger {
public:
    using Line = std::pair<int, std::string>;

    RecordingLogger();
    ~RecordingLogger() override;
    RecordingLogger(const RecordingLogger&) = delete;
    RecordingLogger& operator=(const RecordingLogger&) = delete;

    void Log(int level, const std::string& text) override { lines_.emplace_back(level, text); }

    const std::vector<Line>& Lines() const { return lines_; }

    /// The lines that begin with `prefix`.
    std::vector<Line> LinesWith(const std::string& prefix) const;
    void Clear() { lines_.clear(); }

private:
    std::vector<Line> lines_;
};

}  // namespace NQELVSK20
