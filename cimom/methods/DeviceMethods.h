#pragma once

#include "cimom/methods/MethodCall.h"

namespace cimom {

/// CIM_LogicalDevice.Reset: returns 0 and changes nothing.
MethodResult resetDevice(const MethodCall& call);

/// CIM_NumericSensor.RestoreDefaultThresholds: the upper thresholds become what the sensor's nominal
/// reading and tolerance suggest. Returns 0, or 1 (not supported) for a sensor without nominal reading.
MethodResult restoreDefaultThresholds(const MethodCall& call);

/// CIM_NumericSensor.GetNonLinearFactors: gives the sensor's Accuracy, Resolution and Tolerance around the
/// in-parameter SensorReading. Returns 0, or 1 for a linear sensor, whose out-parameters are null.
MethodResult getNonLinearFactors(const MethodCall& call);

}  // namespace cimom
