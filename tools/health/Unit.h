#pragma once

#include <string>

#include "tools/values/PropertySource.h"

namespace tool {

/// The unit of a sensor's numbers, and the power of ten by which they are multiplied to be in it.
struct Unit {
    std::string
        symbol;  ///< `°C`, `V`, `CFM`; empty when the sensor tells none. Text from the server as it is.
    int powerOfTen = 0;

    /// What the properties of a CIM_NumericSensor say: BaseUnits, RateUnits and UnitModifier, or, where those
    /// name no unit, ProgrammaticUnits (DSP0004), which has a power of its own.
    static Unit of(const PropertySource& properties);
};

}  // namespace tool
