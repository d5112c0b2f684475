#pragma once

#include <optional>

#include "tools/common/Options.h"
#include "tools/program/ExitStatus.h"

namespace tool {

/// Reads the command line. When that is all there is to do (help and version, which are written), `status`
/// says how to exit; otherwise `options` are complete. Throws UsageError for what cannot be read and for
/// options that do not go together.
struct CommandLine {
    CommandLine(int argc, const char* const* argv);

    Options options;
    std::optional<ExitStatus> status;
};

}  // namespace tool
