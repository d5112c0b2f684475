#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "cimom/operations/LocalOnlyRules.h"

namespace cimom {

/// What the command line of the program asks for.
struct Options {
    struct Multiply {
        std::string className;
        std::size_t count = 0;
    };
    struct Load {
        std::string nameSpace;
        std::string file;
    };

    std::vector<std::string> addresses;  ///< Empty: none was given.
    std::string snapshot;
    std::uint16_t httpPort = 5988;
    std::uint16_t httpsPort = 5989;
    bool http = true;
    bool https = true;
    std::string user;
    std::string passwordFile;
    std::vector<Multiply> multiply;
    std::vector<Load> load;
    LocalOnlyRules localOnly;
    std::size_t idleSeconds = 30;
    bool log = false;
};

/// Reads the command line. Returns the exit status with which the program is to end at once, having printed
/// what there is to print (0 for --help and --version, 2 for wrong usage), or nothing when it is to go on.
std::optional<int> readOptions(int argc, char** argv, Options& options);

}  // namespace cimom
