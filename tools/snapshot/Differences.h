#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "tools/snapshot/SnapshotContents.h"

namespace tool {

/// One thing in which two snapshots differ.
struct Difference {
    std::size_t node = 0;               ///< Counted from 1.
    std::string object;                 ///< Empty: the whole node.
    std::string part;                   ///< Empty: the whole object.
    std::optional<std::string> first;   ///< What the first has; none where it lacks it.
    std::optional<std::string> second;  ///< Likewise; of a whole node or object, an empty text.
};

/// Tells each difference, node by node.
void findDifferences(const SnapshotContents& first, const SnapshotContents& second,
                     const std::function<void(const Difference& difference)>& tell);

}  // namespace tool
