#include "cimom/methods/MethodTable.h"

#include <array>
#include <string_view>

#include "cimom/common/CimError.h"
#include "cimom/common/Text.h"
#include "cimom/common/Xml.h"
#include "cimom/methods/DeviceMethods.h"
#include "cimom/methods/EchoMethods.h"
#include "cimom/methods/SystemMethods.h"

namespace cimom {
namespace {

/// A method, implemented for a class and all that inherit from it. An empty method name stands for every
/// method that the class introduces.
struct Entry {
    std::string_view className;
    std::string_view method;
    MethodResult (*run)(const MethodCall&);
};

constexpr std::array<Entry, 5> kMethods{
    {{"OMC_EchoService", "", echo},
     {"CIM_EnabledLogicalElement", "RequestStateChange", requestStateChange},
     {"CIM_LogicalDevice", "Reset", resetDevice},
     {"CIM_NumericSensor", "RestoreDefaultThresholds", restoreDefaultThresholds},
     {"CIM_NumericSensor", "GetNonLinearFactors", getNonLinearFactors}}};

bool implements(const Entry& entry, const ClassView& view, const MemberView& method) {
    const bool named =
        entry.method.empty() ? sameName(entry.className, method.origin) : sameName(entry.method, method.name);
    return named && sameName(entry.className, view.name);
}

const Entry* findImplementation(const MethodCall& call) {
    for (const ClassView* view = call.type; view != nullptr; view = view->superClass) {
        for (const Entry& entry : kMethods) {
            if (implements(entry, *view, *call.method)) {
                return &entry;
            }
        }
    }
    return nullptr;
}

void appendReturnValue(std::string& out, const MethodCall& call, const MethodResult& result) {
    if (result.returnXml.empty()) {
        return;
    }
    out += "<RETURNVALUE";
    appendAttribute(out, "PARAMTYPE", call.method->type());
    out.append(">").append(result.returnXml).append("</RETURNVALUE>");
}

void appendOutParameters(std::string& out, const MethodCall& call, const MethodResult& result,
                         bool sendNulls) {
    for (const ParameterView& parameter : call.method->parameters) {
        for (const MethodResult::Out& value : result.out) {
            const bool sent = sendNulls || !value.valueXml.empty();
            if (sent && value.name == parameter.name) {
                out += "<PARAMVALUE";
                appendAttribute(out, "NAME", parameter.name);
                appendAttribute(out, "PARAMTYPE", parameter.type());
                out.append(">").append(value.valueXml).append("</PARAMVALUE>");
            }
        }
    }
}

}  // namespace

void runExtrinsicMethod(const CimRequest& request, NameSpace& nameSpace, std::string& out, bool sendNulls) {
    const MethodCall call = MethodCall::prepare(request, nameSpace);
    const Entry* implementation = findImplementation(call);
    if (implementation == nullptr) {
        throw CimError(CimStatus::MethodNotAvailable,
                       "the method '" + call.method->name + "' is declared but not implemented");
    }
    const MethodResult result = implementation->run(call);
    appendReturnValue(out, call, result);
    appendOutParameters(out, call, result, sendNulls);
}

}  // namespace cimom
