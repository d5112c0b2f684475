#pragma once

#include <cstddef>
#include <map>
#include <string>

#include "tools/commands/Commands.h"
#include "tools/machine/SchemaCache.h"

namespace tool {

/// Counts the instances that were delivered, and says which of those that the servers gave were not: the
/// plug-in delivers one instance a path.
class RowCount {
public:
    void add(const std::string& className) { ++delivered_[className]; }

    /// A line for each class of which instances are missing, with the reason and where the rest is to be
    /// seen. `isDeep`: every subclass was asked, too.
    void tell(const CommandContext& context, SchemaCache& schemas, bool isDeep) const;

private:
    ReceivedInstances::Counts delivered_;  // by the class that was asked for
};

}  // namespace tool
