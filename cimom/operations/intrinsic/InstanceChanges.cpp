#include "cimom/operations/intrinsic/InstanceChanges.h"

#include "cimom/common/Text.h"
#include "cimom/common/Xml.h"
#include "cimom/data/InstanceDraft.h"
#include "cimom/operations/IntrinsicArguments.h"

namespace cimom {
namespace {

[[noreturn]] void refuseInstance(const std::string& why) {
    throw CimError(CimStatus::InvalidParameter, why);
}

const ClassView& requireConcrete(const IntrinsicCall& call, const std::string& name) {
    const ClassView& type = call.requireClass(name, CimStatus::InvalidClass);
    if (type.flag("abstract")) {
        refuseInstance("the class '" + type.name + "' is abstract");
    }
    return type;
}

/// Properties that the class lacks are an incorrect parameter here, and not a property that is not there.
void takeNew(InstanceDraft& draft, const ClassView& type, pugi::xml_node property) {
    const std::string name = property.attribute("NAME").value();
    if (type.findProperty(name) < 0) {
        refuseInstance("the class '" + type.name + "' has no property '" + name + "'");
    }
    draft.take(property);
}

pugi::xml_node findSent(pugi::xml_node instance, const std::string& name) {
    for (pugi::xml_node child = firstElement(instance); child; child = nextElement(child)) {
        if (isPropertyElement(child) && sameName(child.attribute("NAME").value(), name)) {
            return child;
        }
    }
    return {};
}

/// Each property of the list has the value that was sent, or that of the class when none was.
void takeListed(InstanceDraft& draft, pugi::xml_node instance,
                const std::unordered_set<std::string>& properties) {
    for (const std::string& name : properties) {
        if (const pugi::xml_node sent = findSent(instance, name)) {
            draft.take(sent);
        } else {
            draft.setDefault(name);
        }
    }
}

void takeAll(InstanceDraft& draft, pugi::xml_node instance) {
    for (pugi::xml_node child = firstElement(instance); child; child = nextElement(child)) {
        if (isPropertyElement(child)) {
            draft.take(child);
        }
    }
}

}  // namespace

void createInstance(const IntrinsicCall& call, std::string& out) {
    const IntrinsicArguments arguments(call.request, {"NewInstance"});
    const pugi::xml_node sent = arguments.required("NewInstance", "INSTANCE");
    const ClassView& type = requireConcrete(call, sent.attribute("CLASSNAME").value());
    InstanceDraft draft(type);
    for (pugi::xml_node child = firstElement(sent); child; child = nextElement(child)) {
        if (isPropertyElement(child)) {
            takeNew(draft, type, child);
        }
    }
    Instance instance = draft.build();
    if (call.nameSpace.instances.find(instance.path()) != nullptr) {
        throw CimError(CimStatus::AlreadyExists, "there is such an instance already: " + instance.nameXml());
    }
    out += instance.nameXml();
    call.nameSpace.instances.add(std::move(instance));
}

void modifyInstance(const IntrinsicCall& call, std::string& /*out*/) {
    const IntrinsicArguments arguments(call.request,
                                       {"ModifiedInstance", "IncludeQualifiers", "PropertyList"});
    const pugi::xml_node named = arguments.required("ModifiedInstance", "VALUE.NAMEDINSTANCE");
    const pugi::xml_node sent = named.child("INSTANCE");
    const Instance& instance = call.requireInstance(readObjectPath(named.child("INSTANCENAME")));
    if (!sameName(sent.attribute("CLASSNAME").value(), instance.type().name)) {
        refuseInstance("the instance is of another class than its name");
    }
    InstanceDraft draft(instance);
    if (const PropertySelection properties = arguments.propertyList()) {
        takeListed(draft, sent, *properties);
    } else {
        takeAll(draft, sent);
    }
    call.nameSpace.instances.add(draft.build());
    call.extras.returnsValue = false;
}

void deleteInstance(const IntrinsicCall& call, std::string& /*out*/) {
    const IntrinsicArguments arguments(call.request, {"InstanceName"});
    call.nameSpace.instances.remove(call.requireInstance(arguments.requiredInstanceName("InstanceName")));
    call.extras.returnsValue = false;
}

void setProperty(const IntrinsicCall& call, std::string& /*out*/) {
    const IntrinsicArguments arguments(call.request, {"InstanceName", "PropertyName", "NewValue"});
    const Instance& instance = call.requireInstance(arguments.requiredInstanceName("InstanceName"));
    InstanceDraft draft(instance);
    draft.set(arguments.requiredText("PropertyName"), arguments.find("NewValue"), CimStatus::TypeMismatch);
    call.nameSpace.instances.add(draft.build());
    call.extras.returnsValue = false;
}

}  // namespace cimom
