#pragma once

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMProperty.h>

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "tools/common/Names.h"

namespace tool {

/// What one node's server gave of a namespace, and its place in a snapshot.
class NodeRecord {
public:
    void add(const Pegasus::CIMClass& definition);

    /// An instance as the question for its own class gave it: others are cut to a superclass's properties.
    void add(const Pegasus::CIMInstance& instance);

    bool isEmpty() const { return classes_.empty(); }

    /// What was written, and what a snapshot has no room for.
    struct Count {
        std::size_t classes = 0;
        std::size_t instances = 0;
        std::vector<std::string> orphans;  ///< Classes whose superclass the server does not give.
        std::size_t strays = 0;            ///< Instances without class or without keys.
    };

    /// Appends the node's DECLARATION.
    Count write(std::string& out, const std::string& nameSpace) const;

private:
    using Order = std::vector<const Pegasus::CIMClass*>;

    Order inOrder() const;
    const Pegasus::CIMClass* find(const Pegasus::CIMName& name) const;
    std::vector<Pegasus::CIMConstProperty> keysOf(const Pegasus::CIMName& className) const;
    bool hasProperty(const Pegasus::CIMName& className, const Pegasus::CIMName& property) const;
    bool canBeFound(const Pegasus::CIMInstance& instance) const;
    void writeInstances(std::string& out, const std::string& nameSpace, const Order& order,
                        Count& count) const;

    std::map<std::string, std::size_t, NameLess> places_;  // of classes
    std::vector<Pegasus::CIMClass> classes_;
    std::vector<Pegasus::CIMInstance> instances_;
};

}  // namespace tool
