#pragma once

#include <functional>
#include <set>
#include <string>

#include "tools/console/Progress.h"
#include "tools/machine/SchemaCache.h"
#include "tools/machine/Session.h"
#include "tools/values/PropertyIndex.h"
#include "vskcore/ICIMInstance.h"

namespace tool {

/// Finds every instance below a class on every node, each with all that its own class declares.
///
/// A server answers for a class with the instances of its subclasses too, told as that class sees them. The
/// walk therefore goes down the tree wherever there are instances. It begins at the highest classes that have
/// keys, since instances without a key cannot be told apart; so it also finds those of classes that the first
/// node does not know.
class InstanceWalk {
public:
    /// An instance as a class tells it.
    struct Found {
        PropertyIndex properties;
        std::string path;
        const ClassSchema& schema;
        NQELVSK20::ICIMInstance& instance;
    };

    /// `identity` is the same whenever the same instance comes again, told by a class further down: the last
    /// time counts.
    using Visit = std::function<void(const std::string& identity, const Found& found)>;

    /// All must outlive the walk.
    InstanceWalk(Session& session, SchemaCache& schemas, Progress& progress)
        : session_(session), schemas_(schemas), progress_(progress) {}

    /// A class that cannot be read is said, and left out with those below it; but the top one has to be
    /// there: Failure when it is not.
    void below(const std::string& className, const Visit& visit);

private:
    void descend(const std::string& className, const std::string& top, const Visit& visit);
    void descendOrSay(const std::string& className, const std::string& top, const Visit& visit);
    bool visitInstances(const ClassSchema& schema, const std::string& top, const Visit& visit);

    Session& session_;
    SchemaCache& schemas_;
    Progress& progress_;
    std::set<std::string, NameLess> seen_;
};

}  // namespace tool
