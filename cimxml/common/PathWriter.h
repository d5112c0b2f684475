#pragma once

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>

#include "cimxml/common/XmlOutput.h"

namespace cimxml {

/// Appends the elements that name namespaces, classes and instances (DSP0201, naming elements).
class PathWriter {
public:
    explicit PathWriter(XmlOutput out) : out_(out) {}

    /// LOCALNAMESPACEPATH, with a NAMESPACE for each component.
    void writeNamespace(const Pegasus::CIMNamespaceName& nameSpace);

    void writeClassName(const Pegasus::CIMName& className);

    /// INSTANCENAME with the path's keys.
    void writeInstanceName(const Pegasus::CIMObjectPath& path);

    /// LOCALINSTANCEPATH in `nameSpace` or, for a path without keys, LOCALCLASSPATH.
    void writeLocalPath(const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMObjectPath& path);

    /// VALUE.REFERENCE with as much of a path as `path` has.
    void writeReference(const Pegasus::CIMObjectPath& path);

private:
    void writeKey(const Pegasus::CIMKeyBinding& key);

    XmlOutput out_;
};

}  // namespace cimxml
