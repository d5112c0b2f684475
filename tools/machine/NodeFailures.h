#pragma once

#include <cstddef>
#include <set>

namespace tool {

/// The nodes that failed to answer, apart from those that answered that they have not what was asked for.
class NodeFailures {
public:
    void addFailed(std::size_t node) { failed_.insert(node); }
    void addMissing(std::size_t node) { missing_.insert(node); }

    bool hasFailed(std::size_t node) const { return failed_.count(node) != 0; }

    /// Nodes said that they have not what was asked for, and none failed.
    bool isOnlyMissing() const { return failed_.empty() && !missing_.empty(); }

private:
    std::set<std::size_t> failed_;
    std::set<std::size_t> missing_;
};

}  // namespace tool
