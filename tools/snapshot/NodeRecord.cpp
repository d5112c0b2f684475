#include "tools/snapshot/NodeRecord.h"

#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMQualifier.h>
#include <Pegasus/Common/CIMValue.h>

#include <algorithm>
#include <set>

#include "tools/machine/RemoteText.h"
#include "tools/snapshot/ObjectXml.h"
#include "tools/snapshot/PathXml.h"

namespace tool {

namespace {

using Pegasus::CIMName;
using Pegasus::Uint32;

bool isKeyProperty(const Pegasus::CIMConstProperty& property) {
    const Uint32 at = property.findQualifier(CIMName("Key"));
    Pegasus::Boolean isKey = false;
    if (at != Pegasus::PEG_NOT_FOUND) {
        const Pegasus::CIMValue value = property.getQualifier(at).getValue();
        if (value.getType() == Pegasus::CIMTYPE_BOOLEAN && !value.isArray()) {
            value.get(isKey);
        }
    }
    return isKey;
}

}  // namespace

void NodeRecord::add(const Pegasus::CIMClass& definition) {
    const auto [place, isNew] = places_.emplace(remoteText(definition.getClassName()), classes_.size());
    if (isNew) {
        classes_.push_back(definition);
    } else {
        classes_[place->second] = definition;
    }
}

void NodeRecord::add(const Pegasus::CIMInstance& instance) {
    instances_.push_back(instance);
}

const Pegasus::CIMClass* NodeRecord::find(const CIMName& name) const {
    const auto found = name.isNull() ? places_.end() : places_.find(remoteText(name));
    return found == places_.end() ? nullptr : &classes_[found->second];
}

// Each after its superclass. One that has none here, or is its own, has no place.
NodeRecord::Order NodeRecord::inOrder() const {
    Order order;
    std::set<std::string, NameLess> placed;
    bool isGrowing = true;
    while (isGrowing) {
        isGrowing = false;
        for (const Pegasus::CIMClass& definition : classes_) {
            const CIMName& above = definition.getSuperClassName();
            const bool isReady = above.isNull() || placed.count(remoteText(above)) != 0;
            if (isReady && placed.insert(remoteText(definition.getClassName())).second) {
                order.push_back(&definition);
                isGrowing = true;
            }
        }
    }
    return order;
}

bool NodeRecord::hasProperty(const CIMName& className, const CIMName& property) const {
    const Pegasus::CIMClass* definition = find(className);
    while (definition != nullptr && definition->findProperty(property) == Pegasus::PEG_NOT_FOUND) {
        definition = find(definition->getSuperClassName());
    }
    return definition != nullptr;
}

std::vector<Pegasus::CIMConstProperty> NodeRecord::keysOf(const CIMName& className) const {
    std::vector<Pegasus::CIMConstProperty> keys;
    for (const Pegasus::CIMClass* definition = find(className); definition != nullptr;
         definition = find(definition->getSuperClassName())) {
        for (Uint32 i = 0; i < definition->getPropertyCount(); ++i) {
            const Pegasus::CIMConstProperty property = definition->getProperty(i);
            if (isKeyProperty(property)) {
                keys.push_back(property);
            }
        }
    }
    return keys;
}

// By its path or, without one, by its properties.
bool NodeRecord::canBeFound(const Pegasus::CIMInstance& instance) const {
    if (instance.getPath().getKeyBindings().size() > 0) {
        return true;
    }
    const auto keys = keysOf(instance.getClassName());
    return std::all_of(keys.begin(), keys.end(), [&](const Pegasus::CIMConstProperty& key) {
        const Uint32 at = instance.findProperty(key.getName());
        return at != Pegasus::PEG_NOT_FOUND && !instance.getProperty(at).getValue().isNull();
    });
}

NodeRecord::Count NodeRecord::write(std::string& out, const std::string& nameSpace) const {
    Count count;
    out += "<DECLARATION>\n";
    if (!isEmpty()) {
        const Order order = inOrder();
        out += "<DECLGROUP.WITHNAME>";
        PathXml(out, nameSpace).writeNamespace(nameSpace);
        out += "\n";
        for (const Pegasus::CIMClass* definition : order) {
            out += "<VALUE.NAMEDOBJECT>";
            ObjectXml(out, nameSpace).writeClass(*definition);
            out += "</VALUE.NAMEDOBJECT>\n";
        }
        count.classes = order.size();
        writeInstances(out, nameSpace, order, count);
        out += "</DECLGROUP.WITHNAME>\n";
    }
    out += "</DECLARATION>\n";
    return count;
}

void NodeRecord::writeInstances(std::string& out, const std::string& nameSpace, const Order& order,
                                Count& count) const {
    std::set<std::string, NameLess> declared;
    for (const Pegasus::CIMClass* definition : order) {
        declared.insert(remoteText(definition->getClassName()));
    }
    for (const auto& [name, place] : places_) {
        if (declared.count(name) == 0) {
            count.orphans.push_back(name);
        }
    }
    for (const Pegasus::CIMInstance& instance : instances_) {
        const CIMName& className = instance.getClassName();
        if (declared.count(remoteText(className)) == 0 || !canBeFound(instance)) {
            ++count.strays;
            continue;
        }
        out += "<VALUE.NAMEDOBJECT>";
        PathXml(out, nameSpace).writeName(className, instance.getPath());
        ObjectXml(out, nameSpace).writeInstance(instance, [&](const Pegasus::CIMConstProperty& property) {
            return hasProperty(className, property.getName());
        });
        out += "</VALUE.NAMEDOBJECT>\n";
        ++count.instances;
    }
}

}  // namespace tool
