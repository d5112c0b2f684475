#pragma once

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>

#include <string>

namespace tool {

/// Appends the naming elements of DSP0201 for objects of one namespace. Hosts are left out.
class PathXml {
public:
    /// `out` must outlive this object.
    PathXml(std::string& out, const std::string& nameSpace) : out_(out), nameSpace_(nameSpace) {}

    /// LOCALNAMESPACEPATH.
    void writeNamespace(const std::string& nameSpace);

    /// INSTANCENAME with the path's keys, of the class `className`.
    void writeName(const Pegasus::CIMName& className, const Pegasus::CIMObjectPath& path);

    /// VALUE.REFERENCE, with the namespace if it is another one.
    void writeReference(const Pegasus::CIMObjectPath& path);

private:
    void writeKey(const Pegasus::CIMKeyBinding& key);

    std::string& out_;
    const std::string nameSpace_;
};

}  // namespace tool
