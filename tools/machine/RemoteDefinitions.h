#pragma once

#include <Pegasus/Common/CIMClass.h>

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "tools/common/Names.h"
#include "tools/values/Qualifiers.h"

namespace tool {

/// The definitions of classes as each node gave them. The plug-in makes one of them, in which the first
/// node's members win, and leaves out the qualifiers of methods and parameters.
class RemoteDefinitions {
public:
    void add(std::size_t node, const Pegasus::CIMClass& definition);

    /// The definition that a node gave; null when it gave none. Lives until the node gives another.
    const Pegasus::CIMClass* find(std::size_t node, const std::string& className) const;

    /// The qualifiers of a method, or of one of its parameters; none when the class is not known.
    QualifierValues ofMethod(const std::string& className, const std::string& method) const;
    QualifierValues ofParameter(const std::string& className, const std::string& method,
                                const std::string& parameter) const;

    /// In what the nodes' definitions of a class differ from that of the first node which has one: a text for
    /// each difference, with the node's number.
    std::vector<std::string> differencesOf(const std::string& className) const;

private:
    using ByNode = std::map<std::size_t, Pegasus::CIMClass>;

    const Pegasus::CIMClass* firstOf(const std::string& className) const;

    std::map<std::string, ByNode, NameLess> definitions_;
};

}  // namespace tool
