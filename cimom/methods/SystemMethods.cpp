#include "cimom/methods/SystemMethods.h"

namespace cimom {
namespace {

constexpr const char* kCompleted = "0";
constexpr const char* kInvalidParameter = "5";
constexpr const char* kInvalidTransition = "4097";

/// The EnabledState that a request leads to; empty when the request is not offered.
std::string stateAfter(const std::string& requested) {
    const bool reset = requested == "10" || requested == "11";
    if (requested == "2" || reset) {
        return "2";
    }
    return requested == "3" ? "3" : "";
}

MethodResult answerWithJob(const char* code) {
    MethodResult result;
    result.returnXml = valueElement(code);
    result.out.push_back({"Job", ""});
    return result;
}

}  // namespace

MethodResult requestStateChange(const MethodCall& call) {
    Instance& instance = call.requireInstance();
    const std::string requested = call.text("RequestedState");
    if (requested.empty()) {
        return answerWithJob(kInvalidParameter);
    }
    const std::string state = stateAfter(requested);
    if (state.empty()) {
        return answerWithJob(kInvalidTransition);
    }
    instance.setValue("RequestedState", requested);
    instance.setValue("EnabledState", state);
    return answerWithJob(kCompleted);
}

}  // namespace cimom
