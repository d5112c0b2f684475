#pragma once

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "tools/common/Names.h"
#include "tools/console/Progress.h"
#include "tools/machine/Session.h"
#include "tools/snapshot/NodeRecord.h"
#include "vskcore/ICIMClass.h"

namespace tool {

/// Reads all that a node's server gives of the session's namespace, as if there were no other node: its own
/// class tree with its own definitions, and its instances.
class NodeReader {
public:
    /// Both must outlive the reader.
    NodeReader(Session& session, Progress& progress) : session_(session), progress_(progress) {}

    /// What cannot be read is said and left out. The session asks that node only from then on.
    NodeRecord read(std::size_t node);

private:
    using ClassPointer = boost::shared_ptr<NQELVSK20::ICIMClass>;

    void readClasses(const std::string& above);
    void readClass(const std::string& name);
    void readInstances();

    Session& session_;
    Progress& progress_;
    std::size_t node_ = 0;
    NodeRecord record_;
    std::set<std::string, NameLess> seen_;
    std::vector<ClassPointer> concrete_;
};

}  // namespace tool
