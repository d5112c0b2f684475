#include "cimom/operations/intrinsic/InstanceOperations.h"

#include "cimom/data/InstanceWriter.h"
#include "cimom/operations/IntrinsicArguments.h"

namespace cimom {
namespace {

InstanceOptions readInstanceOptions(const IntrinsicArguments& arguments, const LocalOnlyRules& rules) {
    InstanceOptions options;
    options.localOnly = arguments.boolean("LocalOnly", true);
    options.declaredOnly = options.localOnly && rules.declaredPropertiesOnly;
    options.includeQualifiers = arguments.boolean("IncludeQualifiers", false);
    options.includeClassOrigin = arguments.boolean("IncludeClassOrigin", false);
    options.properties = arguments.propertyList();
    return options;
}

}  // namespace

void getInstance(const IntrinsicCall& call, std::string& out) {
    const IntrinsicArguments arguments(call.request, {"InstanceName", "LocalOnly", "IncludeQualifiers",
                                                      "IncludeClassOrigin", "PropertyList"});
    InstanceWriter writer(readInstanceOptions(arguments, call.localOnly));
    writer.append(out, call.requireInstance(arguments.requiredInstanceName("InstanceName")));
}

void enumerateInstances(const IntrinsicCall& call, std::string& out) {
    const IntrinsicArguments arguments(
        call.request, {"ClassName", "LocalOnly", "DeepInheritance", "IncludeQualifiers", "IncludeClassOrigin",
                       "PropertyList"});
    InstanceOptions options = readInstanceOptions(arguments, call.localOnly);
    const ClassView& type =
        call.requireClass(arguments.requiredClassName("ClassName"), CimStatus::InvalidClass);
    options.limitedTo = arguments.boolean("DeepInheritance", true) ? nullptr : &type;
    InstanceWriter writer(std::move(options));
    const auto instances = call.nameSpace.instances.ofClassAndBelow(type);
    // Long answers spend most of their time on growing the text.
    out.reserve(out.size() + InstanceWriter::roomFor(instances));
    for (const Instance* instance : instances) {
        out += "<VALUE.NAMEDINSTANCE>";
        out += instance->nameXml();
        writer.append(out, *instance);
        out += "</VALUE.NAMEDINSTANCE>";
    }
}

void enumerateInstanceNames(const IntrinsicCall& call, std::string& out) {
    const IntrinsicArguments arguments(call.request, {"ClassName"});
    const ClassView& type =
        call.requireClass(arguments.requiredClassName("ClassName"), CimStatus::InvalidClass);
    for (const Instance* instance : call.nameSpace.instances.ofClassAndBelow(type)) {
        out += instance->nameXml();
    }
}

void getProperty(const IntrinsicCall& call, std::string& out) {
    const IntrinsicArguments arguments(call.request, {"InstanceName", "PropertyName"});
    const Instance& instance = call.requireInstance(arguments.requiredInstanceName("InstanceName"));
    const std::string name = arguments.requiredText("PropertyName");
    if (instance.type().findProperty(name) < 0) {
        throw CimError(CimStatus::NoSuchProperty,
                       "the class '" + instance.type().name + "' has no property '" + name + "'");
    }
    out += instance.valueXml(name);
}

}  // namespace cimom
