#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "tools/common/Names.h"
#include "tools/console/Progress.h"
#include "tools/machine/SchemaCache.h"
#include "tools/machine/Session.h"
#include "tools/report/ClassBranch.h"

namespace tool {

/// Reads the whole tree of classes, each with its instances on every node.
class ClassTree {
public:
    /// All must outlive the tree.
    ClassTree(Session& session, SchemaCache& schemas, Progress& progress)
        : session_(session), schemas_(schemas), progress_(progress) {}

    /// The top-level classes. What cannot be read is said and left out.
    std::vector<ClassBranch> read();

private:
    void readInstances(const std::vector<std::string>& classNames);
    std::vector<std::string> namesBelow(const std::string& className);
    std::vector<ClassBranch> branchesOf(const std::vector<std::string>& names);
    ClassBranch branchOf(const std::string& name);

    Session& session_;
    SchemaCache& schemas_;
    Progress& progress_;
    std::map<std::string, std::vector<InstanceView>, NameLess> instances_;  // by class
    std::set<std::string, NameLess> seen_;
};

}  // namespace tool
