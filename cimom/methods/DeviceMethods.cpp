#include "cimom/methods/DeviceMethods.h"

#include <cstdlib>

namespace cimom {
namespace {

constexpr const char* kDone = "0";
constexpr const char* kNotSupported = "1";

MethodResult answer(const char* code) {
    MethodResult result;
    result.returnXml = valueElement(code);
    return result;
}

}  // namespace

MethodResult resetDevice(const MethodCall& call) {
    call.requireInstance();
    return answer(kDone);
}

MethodResult restoreDefaultThresholds(const MethodCall& call) {
    Instance& sensor = call.requireInstance();
    const std::string nominal = sensor.valueOf("NominalReading");
    if (nominal.empty()) {
        return answer(kNotSupported);
    }
    const long long reading = std::strtoll(nominal.c_str(), nullptr, 10);
    const long long margin = std::llabs(reading) / 4;
    sensor.setValue("UpperThresholdNonCritical", std::to_string(reading + margin));
    sensor.setValue("UpperThresholdCritical", std::to_string(reading + 2 * margin));
    return answer(kDone);
}

MethodResult getNonLinearFactors(const MethodCall& call) {
    const Instance& sensor = call.requireInstance();
    const bool linear = sensor.valueOf("IsLinear") != "FALSE";
    MethodResult result = answer(linear ? kNotSupported : kDone);
    for (const char* name : {"Accuracy", "Resolution", "Tolerance"}) {
        const std::string value = linear ? std::string() : sensor.valueOf(name);
        result.out.push_back({name, value.empty() ? std::string() : valueElement(value)});
    }
    return result;
}

}  // namespace cimom
