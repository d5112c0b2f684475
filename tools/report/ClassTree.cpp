#include "tools/report/ClassTree.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "tools/common/Failure.h"
#include "tools/health/InstanceWalk.h"
#include "tools/print/NullCells.h"

namespace tool {

std::vector<ClassBranch> ClassTree::read() {
    const std::vector<std::string> names = namesBelow("");
    readInstances(names);
    return branchesOf(names);
}

// An instance comes once for each class that it belongs to; the last, its own, tells all of it.
void ClassTree::readInstances(const std::vector<std::string>& classNames) {
    const NullCells nullCells(session_, schemas_);
    InstanceWalk walk(session_, schemas_, progress_);
    std::map<std::string, InstanceView> all;
    for (const std::string& name : classNames) {
        try {
            walk.below(name, [&](const std::string& identity, const InstanceWalk::Found& found) {
                all.insert_or_assign(identity, InstanceView(found.instance, &nullCells));
            });
        } catch (const Failure& failure) {
            session_.sayFailure(failure);
        }
    }
    for (auto& [identity, instance] : all) {
        instances_[instance.className].push_back(std::move(instance));
    }
}

// A class that comes a second time is left out: a server's classes may be each other's subclasses.
std::vector<std::string> ClassTree::namesBelow(const std::string& className) {
    std::vector<std::string> names;
    for (const std::string& name : session_.classNames(className)) {
        if (seen_.insert(name).second) {
            names.push_back(name);
        }
    }
    return names;
}

std::vector<ClassBranch> ClassTree::branchesOf(const std::vector<std::string>& names) {
    std::vector<ClassBranch> branches;
    branches.reserve(names.size());
    for (const std::string& name : names) {
        branches.push_back(branchOf(name));
    }
    return branches;
}

ClassBranch ClassTree::branchOf(const std::string& name) {
    progress_.note(std::to_string(seen_.size()) + " classes: " + name);
    ClassBranch branch;
    branch.name = name;
    branch.instances = std::move(instances_[name]);
    std::stable_sort(branch.instances.begin(), branch.instances.end(),
                     [](const InstanceView& one, const InstanceView& other) {
                         return std::tie(one.node, one.path) < std::tie(other.node, other.path);
                     });
    branch.subclasses = branchesOf(namesBelow(name));
    branch.total = branch.instances.size();
    for (const ClassBranch& below : branch.subclasses) {
        branch.total += below.total;
    }
    return branch;
}

}  // namespace tool
