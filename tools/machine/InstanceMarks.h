#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "tools/values/ObjectPath.h"

namespace tool {

/// The marks that tell the instances of several nodes from each other: the plug-in puts "Node1:", "Node2:"
/// and so on before the values of the properties whose names contain "InstanceID", which a server knows
/// without.
class InstanceMarks {
public:
    /// For a namespace of that name on these nodes of the machine, counted from zero.
    InstanceMarks(const std::string& nameSpace, const std::vector<std::size_t>& nodes);

    /// A path of a server as each node's instance would bear it, in node order; none when nothing in it is
    /// marked.
    std::vector<ObjectPath> marked(const ObjectPath& path, const ClassSchema& schema) const;

    struct Unmarked {
        ObjectPath path;  ///< As the node's server knows it.
        std::size_t node = 0;
    };

    /// What a marked path stands for; none when it bears no mark of a node of the machine.
    std::optional<Unmarked> unmarked(const ObjectPath& path, const ClassSchema& schema) const;

private:
    std::vector<std::size_t> nodes_;
    std::vector<std::string> marks_;  // theirs
    bool marksOnlyEmpty_;
};

}  // namespace tool
