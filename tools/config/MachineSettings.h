#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tools/common/Options.h"

namespace tool {

/// What a configuration file says of a machine.
struct MachineSettings {
    std::vector<std::string> nodes;  ///< [USER@]HOST each, in node order.
    std::string user;                ///< Of the nodes that name none; empty: none.
    std::optional<Transport> transport;
    std::optional<std::string> nameSpace;
    std::optional<unsigned> connectTimeoutS;
    std::string passwordFile;                  ///< Empty: none.
    std::vector<std::string> passwordCommand;  ///< A program and its arguments; empty: none.
};

}  // namespace tool
