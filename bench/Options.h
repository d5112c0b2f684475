#pragma once

#include <optional>
#include <string>
#include <vector>

#include "bench/sections/Sections.h"

namespace bench {

/// What the command line asks for. When that is all there is to do (help, a mistake), `status` says how to
/// exit.
struct Options {
    Options(int argc, const char* const* argv);

    Settings settings;
    std::string jsonFile;               ///< Empty: none.
    std::string onlyLayer;              ///< Empty: compare.
    std::vector<std::string> sections;  ///< Keys; empty: all.
    std::optional<int> status;
};

}  // namespace bench
