#include "cimom/methods/EchoMethods.h"

#include <string_view>

#include "cimom/common/Text.h"

namespace cimom {
namespace {

std::string sourceOf(const ParameterView& parameter) {
    constexpr std::string_view kSuffix = "Echo";
    if (parameter.flag("in", true)) {
        return parameter.name;
    }
    return parameter.name.substr(0, parameter.name.size() - kSuffix.size());
}

bool returnsItsValue(const MemberView& method) {
    for (const ParameterView& parameter : method.parameters) {
        if (parameter.name == "Value" && parameter.type() == method.type()) {
            return true;
        }
    }
    return false;
}

}  // namespace

MethodResult echo(const MethodCall& call) {
    MethodResult result;
    if (sameName(call.method->name, "Silence")) {
        return result;
    }
    result.returnXml = returnsItsValue(*call.method) ? call.valueXml("Value") : valueElement("0");
    for (const ParameterView& parameter : call.method->parameters) {
        if (parameter.flag("out", false)) {
            result.out.push_back({parameter.name, call.valueXml(sourceOf(parameter))});
        }
    }
    return result;
}

}  // namespace cimom
