#include "cimom/operations/IntrinsicOperations.h"

#include <array>
#include <string_view>

#include "cimom/common/CimError.h"
#include "cimom/common/Text.h"
#include "cimom/common/Xml.h"
#include "cimom/data/InstanceWriter.h"
#include "cimom/operations/IntrinsicArguments.h"
#include "cimom/schema/ClassWriter.h"

namespace cimom {
namespace {

/// What an operation is asked, of which data, and how the server sees it.
struct Call {
    const CimRequest& request;
    NameSpace& nameSpace;
    const LocalOnlyRules& localOnly;
};

const ClassView& requireClass(const NameSpace& nameSpace, const std::string& name, CimStatus otherwise) {
    const ClassView* view = nameSpace.classes.find(name);
    if (view == nullptr) {
        throw CimError(otherwise, "the class '" + name + "' does not exist in '" + nameSpace.name + "'");
    }
    return *view;
}

/// The class from whose subclasses an enumeration starts; null for the top of the hierarchy.
const ClassView* findStart(const NameSpace& nameSpace, const std::string& name) {
    return name.empty() ? nullptr : &requireClass(nameSpace, name, CimStatus::InvalidClass);
}

const Instance& requireInstance(NameSpace& nameSpace, ObjectPath path) {
    const ClassView& type = requireClass(nameSpace, path.className, CimStatus::InvalidClass);
    if (path.keys.size() == 1 && path.keys.front().name.empty()) {
        for (const MemberView& property : type.properties) {
            path.keys.front().name = property.isKey ? property.name : path.keys.front().name;
        }
    }
    const Instance* instance = nameSpace.instances.find(path);
    if (instance == nullptr) {
        std::string text;
        appendInstanceName(text, path);
        throw CimError(CimStatus::NotFound, "there is no instance " + text);
    }
    return *instance;
}

ClassOptions readClassOptions(const IntrinsicArguments& arguments) {
    ClassOptions options;
    options.localOnly = arguments.boolean("LocalOnly", true);
    options.includeQualifiers = arguments.boolean("IncludeQualifiers", true);
    options.includeClassOrigin = arguments.boolean("IncludeClassOrigin", false);
    return options;
}

InstanceOptions readInstanceOptions(const IntrinsicArguments& arguments, const LocalOnlyRules& rules) {
    InstanceOptions options;
    options.localOnly = arguments.boolean("LocalOnly", true);
    options.declaredOnly = options.localOnly && rules.declaredPropertiesOnly;
    options.includeQualifiers = arguments.boolean("IncludeQualifiers", false);
    options.includeClassOrigin = arguments.boolean("IncludeClassOrigin", false);
    options.properties = arguments.propertyList();
    return options;
}

void getClass(const Call& call, std::string& out) {
    const IntrinsicArguments arguments(
        call.request, {"ClassName", "LocalOnly", "IncludeQualifiers", "IncludeClassOrigin", "PropertyList"});
    ClassOptions options = readClassOptions(arguments);
    options.flat = call.localOnly.flatClasses;
    options.properties = arguments.propertyList();
    const std::string name = arguments.requiredClassName("ClassName");
    appendClass(out, requireClass(call.nameSpace, name, CimStatus::NotFound), options);
}

void enumerateClasses(const Call& call, std::string& out) {
    const IntrinsicArguments arguments(call.request, {"ClassName", "DeepInheritance", "LocalOnly",
                                                      "IncludeQualifiers", "IncludeClassOrigin"});
    const ClassOptions options = readClassOptions(arguments);
    const bool deep = arguments.boolean("DeepInheritance", false);
    const ClassView* start = findStart(call.nameSpace, arguments.className("ClassName"));
    for (const ClassView* view : call.nameSpace.classes.subclasses(start, deep)) {
        appendClass(out, *view, options);
    }
}

void enumerateClassNames(const Call& call, std::string& out) {
    const IntrinsicArguments arguments(call.request, {"ClassName", "DeepInheritance"});
    const bool deep = arguments.boolean("DeepInheritance", false);
    const ClassView* start = findStart(call.nameSpace, arguments.className("ClassName"));
    for (const ClassView* view : call.nameSpace.classes.subclasses(start, deep)) {
        out += "<CLASSNAME";
        appendAttribute(out, "NAME", view->name);
        out += "></CLASSNAME>";
    }
}

void getInstance(const Call& call, std::string& out) {
    const IntrinsicArguments arguments(call.request, {"InstanceName", "LocalOnly", "IncludeQualifiers",
                                                      "IncludeClassOrigin", "PropertyList"});
    InstanceWriter writer(readInstanceOptions(arguments, call.localOnly));
    writer.append(out, requireInstance(call.nameSpace, arguments.requiredInstanceName("InstanceName")));
}

void enumerateInstances(const Call& call, std::string& out) {
    const IntrinsicArguments arguments(
        call.request, {"ClassName", "LocalOnly", "DeepInheritance", "IncludeQualifiers", "IncludeClassOrigin",
                       "PropertyList"});
    InstanceOptions options = readInstanceOptions(arguments, call.localOnly);
    const ClassView& type =
        requireClass(call.nameSpace, arguments.requiredClassName("ClassName"), CimStatus::InvalidClass);
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

void enumerateInstanceNames(const Call& call, std::string& out) {
    const IntrinsicArguments arguments(call.request, {"ClassName"});
    const ClassView& type =
        requireClass(call.nameSpace, arguments.requiredClassName("ClassName"), CimStatus::InvalidClass);
    for (const Instance* instance : call.nameSpace.instances.ofClassAndBelow(type)) {
        out += instance->nameXml();
    }
}

void getProperty(const Call& call, std::string& out) {
    const IntrinsicArguments arguments(call.request, {"InstanceName", "PropertyName"});
    const Instance& instance =
        requireInstance(call.nameSpace, arguments.requiredInstanceName("InstanceName"));
    const std::string name = arguments.requiredText("PropertyName");
    if (instance.type().findProperty(name) < 0) {
        throw CimError(CimStatus::NoSuchProperty,
                       "the class '" + instance.type().name + "' has no property '" + name + "'");
    }
    out += instance.valueXml(name);
}

void getQualifier(const Call& call, std::string& out) {
    const IntrinsicArguments arguments(call.request, {"QualifierName"});
    const std::string name = arguments.requiredText("QualifierName");
    const pugi::xml_node declaration = call.nameSpace.qualifiers.find(name);
    if (!declaration) {
        throw CimError(CimStatus::NotFound, "there is no qualifier declaration '" + name + "'");
    }
    appendElement(out, declaration);
}

void enumerateQualifiers(const Call& call, std::string& out) {
    const IntrinsicArguments arguments(call.request, {});
    for (const pugi::xml_node declaration : call.nameSpace.qualifiers.all()) {
        appendElement(out, declaration);
    }
}

struct Operation {
    std::string_view name;
    void (*run)(const Call& call, std::string& out);
};

constexpr std::array<Operation, 9> kOperations{{{"GetClass", getClass},
                                                {"EnumerateClasses", enumerateClasses},
                                                {"EnumerateClassNames", enumerateClassNames},
                                                {"GetInstance", getInstance},
                                                {"EnumerateInstances", enumerateInstances},
                                                {"EnumerateInstanceNames", enumerateInstanceNames},
                                                {"GetProperty", getProperty},
                                                {"GetQualifier", getQualifier},
                                                {"EnumerateQualifiers", enumerateQualifiers}}};

}  // namespace

void runIntrinsicOperation(const CimRequest& request, NameSpace& nameSpace, std::string& out,
                           const LocalOnlyRules& localOnly) {
    for (const Operation& operation : kOperations) {
        if (sameName(operation.name, request.operation)) {
            operation.run({request, nameSpace, localOnly}, out);
            return;
        }
    }
    throw CimError(CimStatus::NotSupported, "the operation '" + request.operation + "' is not supported");
}

}  // namespace cimom
