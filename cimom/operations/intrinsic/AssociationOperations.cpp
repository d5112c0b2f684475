#include "cimom/operations/intrinsic/AssociationOperations.h"

#include <vector>

#include "cimom/common/Text.h"
#include "cimom/data/InstanceWriter.h"
#include "cimom/operations/PathWriter.h"
#include "cimom/schema/ClassWriter.h"

namespace cimom {
namespace {

const ClassView* filterClass(const IntrinsicCall& call, const IntrinsicArguments& arguments,
                             const char* name) {
    return call.findClass(arguments.className(name), CimStatus::InvalidParameter);
}

/// What an operation finds: instances for an instance, classes for a class.
struct FoundObjects {
    std::vector<const Instance*> instances;
    std::vector<const ClassView*> classes;
};

FoundObjects findReferences(const IntrinsicCall& call, const IntrinsicArguments& arguments) {
    const ObjectPath source = arguments.requiredObjectName("ObjectName");
    const AssociationFilter filter = readReferenceFilter(call, arguments);
    if (source.isInstance) {
        const Instance& instance = call.requireInstance(source, CimStatus::InvalidParameter);
        return {referencesTo(instance, call.nameSpace, filter), {}};
    }
    const ClassView& view = call.requireClass(source.className, CimStatus::InvalidParameter);
    return {{}, referencesTo(view, call.nameSpace, filter)};
}

FoundObjects findAssociated(const IntrinsicCall& call, const IntrinsicArguments& arguments) {
    const ObjectPath source = arguments.requiredObjectName("ObjectName");
    const AssociationFilter filter = readAssociatorFilter(call, arguments);
    if (source.isInstance) {
        const Instance& instance = call.requireInstance(source, CimStatus::InvalidParameter);
        return {associatedWith(instance, call.nameSpace, filter), {}};
    }
    const ClassView& view = call.requireClass(source.className, CimStatus::InvalidParameter);
    return {{}, associatedWith(view, call.nameSpace, filter)};
}

void appendNames(std::string& out, const IntrinsicCall& call, const FoundObjects& found) {
    for (const Instance* instance : found.instances) {
        out += "<OBJECTPATH>";
        appendInstancePath(out, call.request, instance->nameXml());
        out += "</OBJECTPATH>";
    }
    for (const ClassView* view : found.classes) {
        out += "<OBJECTPATH>";
        appendClassPath(out, call.request, view->name);
        out += "</OBJECTPATH>";
    }
}

/// The objects themselves, with their paths.
void appendObjects(std::string& out, const IntrinsicCall& call, const IntrinsicArguments& arguments,
                   const FoundObjects& found) {
    InstanceOptions options;
    options.localOnly = false;
    options.includeQualifiers = arguments.boolean("IncludeQualifiers", false);
    options.includeClassOrigin = arguments.boolean("IncludeClassOrigin", false);
    options.properties = arguments.propertyList();
    ClassOptions classOptions;
    classOptions.localOnly = false;
    classOptions.includeQualifiers = options.includeQualifiers;
    classOptions.includeClassOrigin = options.includeClassOrigin;
    classOptions.properties = options.properties;
    InstanceWriter writer(std::move(options));
    for (const Instance* instance : found.instances) {
        out += "<VALUE.OBJECTWITHPATH>";
        appendInstancePath(out, call.request, instance->nameXml());
        writer.append(out, *instance);
        out += "</VALUE.OBJECTWITHPATH>";
    }
    for (const ClassView* view : found.classes) {
        out += "<VALUE.OBJECTWITHPATH>";
        appendClassPath(out, call.request, view->name);
        appendClass(out, *view, classOptions);
        out += "</VALUE.OBJECTWITHPATH>";
    }
}

}  // namespace

AssociationFilter readAssociatorFilter(const IntrinsicCall& call, const IntrinsicArguments& arguments) {
    return {filterClass(call, arguments, "AssocClass"), filterClass(call, arguments, "ResultClass"),
            lowered(arguments.text("Role").value_or("")), lowered(arguments.text("ResultRole").value_or(""))};
}

AssociationFilter readReferenceFilter(const IntrinsicCall& call, const IntrinsicArguments& arguments) {
    AssociationFilter filter;
    filter.associationClass = filterClass(call, arguments, "ResultClass");
    filter.role = lowered(arguments.text("Role").value_or(""));
    return filter;
}

void associators(const IntrinsicCall& call, std::string& out) {
    const IntrinsicArguments arguments(
        call.request, {"ObjectName", "AssocClass", "ResultClass", "Role", "ResultRole", "IncludeQualifiers",
                       "IncludeClassOrigin", "PropertyList"});
    appendObjects(out, call, arguments, findAssociated(call, arguments));
}

void associatorNames(const IntrinsicCall& call, std::string& out) {
    const IntrinsicArguments arguments(call.request,
                                       {"ObjectName", "AssocClass", "ResultClass", "Role", "ResultRole"});
    appendNames(out, call, findAssociated(call, arguments));
}

void references(const IntrinsicCall& call, std::string& out) {
    const IntrinsicArguments arguments(
        call.request,
        {"ObjectName", "ResultClass", "Role", "IncludeQualifiers", "IncludeClassOrigin", "PropertyList"});
    appendObjects(out, call, arguments, findReferences(call, arguments));
}

void referenceNames(const IntrinsicCall& call, std::string& out) {
    const IntrinsicArguments arguments(call.request, {"ObjectName", "ResultClass", "Role"});
    appendNames(out, call, findReferences(call, arguments));
}

}  // namespace cimom
