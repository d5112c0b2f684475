#include "cimom/methods/MethodCall.h"

#include <algorithm>
#include <string_view>

#include "cimom/common/CimError.h"
#include "cimom/common/CimType.h"
#include "cimom/common/Text.h"
#include "cimom/common/Xml.h"

namespace cimom {
namespace {

[[noreturn]] void refuse(const std::string& parameter, const std::string& why) {
    throw CimError(CimStatus::InvalidParameter, "the parameter '" + parameter + "' " + why);
}

std::string checkedScalar(const ParameterView& parameter, pugi::xml_node value) {
    const bool reference = parameter.type() == "reference";
    const std::string_view expected = reference ? "VALUE.REFERENCE" : "VALUE";
    if (value.name() != expected) {
        refuse(parameter.name,
               "holds " + std::string(value.name()) + " where " + std::string(expected) + " was expected");
    }
    if (reference) {
        readObjectPath(firstElement(value));
        std::string xml;
        appendElement(xml, value);
        return xml;
    }
    const auto text = canonicalValue(parameter.type(), textOf(value));
    if (!text) {
        refuse(parameter.name, "is no " + parameter.type() + ": '" + textOf(value) + "'");
    }
    return valueElement(*text);
}

std::string checkedArray(const ParameterView& parameter, pugi::xml_node array) {
    const std::string name = parameter.type() == "reference" ? "VALUE.REFARRAY" : "VALUE.ARRAY";
    if (array.name() != name) {
        refuse(parameter.name, "is an array and holds " + std::string(array.name()));
    }
    std::string xml = "<" + name + ">";
    for (pugi::xml_node value = firstElement(array); value; value = nextElement(value)) {
        const bool null = std::string_view(value.name()) == "VALUE.NULL";
        xml += null ? "<VALUE.NULL></VALUE.NULL>" : checkedScalar(parameter, value);
    }
    return xml + "</" + name + ">";
}

const ParameterView& findParameter(const MemberView& method, const std::string& name) {
    for (const ParameterView& parameter : method.parameters) {
        if (sameName(parameter.name, name)) {
            return parameter;
        }
    }
    refuse(name, "is not declared by the method '" + method.name + "'");
}

MethodArgument checkedArgument(const MemberView& method, const CimArgument& argument) {
    const ParameterView& parameter = findParameter(method, argument.name);
    if (!parameter.flag("in", true)) {
        refuse(argument.name, "is an out-parameter only");
    }
    if (!argument.type.empty() && argument.type != parameter.type()) {
        refuse(argument.name, "is of type " + parameter.type() + ", not " + argument.type);
    }
    if (!argument.value) {
        return {&parameter, ""};
    }
    return {&parameter, parameter.isArray() ? checkedArray(parameter, argument.value)
                                            : checkedScalar(parameter, argument.value)};
}

void checkArguments(const CimRequest& request, MethodCall& call) {
    for (const CimArgument& argument : request.arguments) {
        MethodArgument checked = checkedArgument(*call.method, argument);
        const bool twice =
            std::any_of(call.arguments.begin(), call.arguments.end(),
                        [&](const auto& earlier) { return earlier.parameter == checked.parameter; });
        if (twice) {
            refuse(argument.name, "is given twice");
        }
        call.arguments.push_back(std::move(checked));
    }
}

}  // namespace

MethodCall MethodCall::prepare(const CimRequest& request, NameSpace& nameSpace) {
    MethodCall call;
    call.type = nameSpace.classes.find(request.target.className);
    if (call.type == nullptr) {
        throw CimError(CimStatus::NotFound, "the class '" + request.target.className +
                                                "' does not exist in '" + nameSpace.name + "'");
    }
    if (request.target.isInstance) {
        call.instance = nameSpace.instances.find(request.target);
        if (call.instance == nullptr) {
            throw CimError(CimStatus::NotFound,
                           "the instance of '" + request.target.className + "' does not exist");
        }
    }
    call.method = call.type->findMethod(request.operation);
    if (call.method == nullptr) {
        throw CimError(CimStatus::MethodNotFound,
                       "the class '" + call.type->name + "' has no method '" + request.operation + "'");
    }
    checkArguments(request, call);
    return call;
}

std::string MethodCall::valueXml(const std::string& parameter) const {
    for (const MethodArgument& argument : arguments) {
        if (sameName(argument.parameter->name, parameter)) {
            return argument.valueXml;
        }
    }
    return {};
}

std::string MethodCall::text(const std::string& parameter) const {
    const std::string xml = valueXml(parameter);
    pugi::xml_document document;
    return xml.empty() || parseXml(xml, document) ? std::string() : textOf(firstElement(document));
}

Instance& MethodCall::requireInstance() const {
    if (instance == nullptr) {
        throw CimError(CimStatus::InvalidParameter, "the method '" + method->name + "' needs an instance");
    }
    return *instance;
}

std::string valueElement(const std::string& text) {
    std::string xml = "<VALUE>";
    appendEscaped(xml, text);
    return xml + "</VALUE>";
}

}  // namespace cimom
