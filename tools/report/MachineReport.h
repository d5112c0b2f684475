#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "tools/console/Progress.h"
#include "tools/health/HealthReport.h"
#include "tools/machine/SchemaCache.h"
#include "tools/machine/Session.h"
#include "tools/report/ClassBranch.h"

namespace tool {

/// All that a machine's page shows. Texts are the servers', as they are.
struct MachineReport {
    struct Node {
        std::string number;
        std::string host;
        std::string connection;  ///< How it was reached, else that and why it was not.
        bool isAsked = false;
        std::vector<std::string> systems;  ///< What it says that it is (CIM_ComputerSystem).
    };

    /// Asks every node for everything. Throws Failure as HealthReport does.
    static MachineReport of(Session& session, SchemaCache& schemas, Progress& progress);

    std::string nameSpace;
    std::string time;
    std::vector<Node> nodes;
    HealthReport health;
    std::vector<ClassBranch> classes;
    std::size_t failures = 0;  ///< While asking: what those nodes have is missing.
};

}  // namespace tool
