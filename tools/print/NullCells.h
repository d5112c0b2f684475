#pragma once

#include <string>
#include <vector>

#include "tools/machine/InstanceMarks.h"
#include "tools/machine/SchemaCache.h"
#include "tools/machine/Session.h"

namespace tool {

/// Tells which of the values that the plug-in delivered were null at their server: in namespaces of
/// root/cimv2 it gives zero, false or an empty text instead, as its hosts expect.
class NullCells {
public:
    /// Both must outlive the object.
    NullCells(Session& session, SchemaCache& schemas)
        : session_(session), schemas_(schemas), marks_(session.nameSpaceName(), session.machine().asked()) {}

    /// The properties that were null in an instance of a class, which its path and its node as shown tell.
    std::vector<std::string> of(const boost::shared_ptr<NQELVSK20::ICIMClass>& cimClass,
                                const std::string& path, const std::string& node) const;

private:
    Session& session_;
    SchemaCache& schemas_;
    InstanceMarks marks_;
};

}  // namespace tool
