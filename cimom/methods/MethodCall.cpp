#include "cimom/methods/MethodCall.h"

#include <algorithm>

#include "cimom/common/CimError.h"
#include "cimom/common/Text.h"
#include "cimom/common/Xml.h"

namespace cimom {
namespace {

[[noreturn]] void refuse(const std::string& parameter, const std::string& why) {
    throw CimError(CimStatus::InvalidParameter, "the parameter '" + parameter + "' " + why);
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
    const ValueRule rule{"the parameter '" + parameter.name + "'", parameter.type(), parameter.isArray()};
    return {&parameter, checkedValue(rule, argument.value)};
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

}  // namespace cimom
