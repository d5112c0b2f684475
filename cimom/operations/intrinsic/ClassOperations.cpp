#include "cimom/operations/intrinsic/ClassOperations.h"

#include <stdexcept>

#include "cimom/common/Xml.h"
#include "cimom/operations/IntrinsicArguments.h"
#include "cimom/schema/ClassWriter.h"

namespace cimom {
namespace {

/// The class from whose subclasses an enumeration starts; null for the top of the hierarchy.
const ClassView* findStart(const IntrinsicCall& call, const IntrinsicArguments& arguments) {
    return call.findClass(arguments.className("ClassName"), CimStatus::InvalidClass);
}

ClassOptions readClassOptions(const IntrinsicArguments& arguments) {
    ClassOptions options;
    options.localOnly = arguments.boolean("LocalOnly", true);
    options.includeQualifiers = arguments.boolean("IncludeQualifiers", true);
    options.includeClassOrigin = arguments.boolean("IncludeClassOrigin", false);
    return options;
}

/// Of the class that an argument declares.
std::string sentClassName(pugi::xml_node element) {
    const std::string name = element.attribute("NAME").value();
    if (name.empty()) {
        throw CimError(CimStatus::InvalidParameter, "the class has no NAME");
    }
    for (pugi::xml_node child = firstElement(element); child; child = nextElement(child)) {
        if (*child.attribute("NAME").value() == '\0') {
            throw CimError(CimStatus::InvalidParameter, std::string(child.name()) + " without NAME");
        }
    }
    return name;
}

void declareSentClass(const IntrinsicCall& call, pugi::xml_node element) {
    const pugi::xml_node kept = call.nameSpace.keep(element);
    try {
        call.nameSpace.classes.declare(kept, call.nameSpace.qualifiers);
    } catch (const std::runtime_error& error) {
        NameSpace::drop(kept);
        throw CimError(CimStatus::InvalidSuperclass, error.what());
    }
}

/// Throws when subclasses or instances would be left with another class than they were made for.
void requireUnused(const IntrinsicCall& call, const ClassView& view) {
    if (!call.nameSpace.classes.subclasses(&view, false).empty()) {
        throw CimError(CimStatus::ClassHasChildren, "the class '" + view.name + "' has subclasses");
    }
    if (!call.nameSpace.instances.ofClassAndBelow(view).empty()) {
        throw CimError(CimStatus::ClassHasInstances, "the class '" + view.name + "' has instances");
    }
}

}  // namespace

void getClass(const IntrinsicCall& call, std::string& out) {
    const IntrinsicArguments arguments(
        call.request, {"ClassName", "LocalOnly", "IncludeQualifiers", "IncludeClassOrigin", "PropertyList"});
    ClassOptions options = readClassOptions(arguments);
    options.flat = call.localOnly.flatClasses;
    options.properties = arguments.propertyList();
    const std::string name = arguments.requiredClassName("ClassName");
    appendClass(out, call.requireClass(name, CimStatus::NotFound), options);
}

void enumerateClasses(const IntrinsicCall& call, std::string& out) {
    const IntrinsicArguments arguments(call.request, {"ClassName", "DeepInheritance", "LocalOnly",
                                                      "IncludeQualifiers", "IncludeClassOrigin"});
    const ClassOptions options = readClassOptions(arguments);
    const bool deep = arguments.boolean("DeepInheritance", false);
    for (const ClassView* view : call.nameSpace.classes.subclasses(findStart(call, arguments), deep)) {
        appendClass(out, *view, options);
    }
}

void enumerateClassNames(const IntrinsicCall& call, std::string& out) {
    const IntrinsicArguments arguments(call.request, {"ClassName", "DeepInheritance"});
    const bool deep = arguments.boolean("DeepInheritance", false);
    for (const ClassView* view : call.nameSpace.classes.subclasses(findStart(call, arguments), deep)) {
        out += "<CLASSNAME";
        appendAttribute(out, "NAME", view->name);
        out += "></CLASSNAME>";
    }
}

void createClass(const IntrinsicCall& call, std::string& /*out*/) {
    const IntrinsicArguments arguments(call.request, {"NewClass"});
    const pugi::xml_node element = arguments.required("NewClass", "CLASS");
    const std::string name = sentClassName(element);
    if (call.nameSpace.classes.find(name) != nullptr) {
        throw CimError(CimStatus::AlreadyExists, "the class '" + name + "' exists already");
    }
    declareSentClass(call, element);
    call.extras.returnsValue = false;
}

void modifyClass(const IntrinsicCall& call, std::string& /*out*/) {
    const IntrinsicArguments arguments(call.request, {"ModifiedClass"});
    const pugi::xml_node element = arguments.required("ModifiedClass", "CLASS");
    const ClassView& view = call.requireClass(sentClassName(element), CimStatus::NotFound);
    requireUnused(call, view);
    const pugi::xml_node replaced = view.element;
    declareSentClass(call, element);
    NameSpace::drop(replaced);
    call.extras.returnsValue = false;
}

void deleteClass(const IntrinsicCall& call, std::string& /*out*/) {
    const IntrinsicArguments arguments(call.request, {"ClassName"});
    const ClassView& view = call.requireClass(arguments.requiredClassName("ClassName"), CimStatus::NotFound);
    requireUnused(call, view);
    const pugi::xml_node declaration = view.element;
    call.nameSpace.classes.remove(view);
    NameSpace::drop(declaration);
    call.extras.returnsValue = false;
}

}  // namespace cimom
