#pragma once

#include <array>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>

#include "tools/common/Decimal.h"
#include "tools/values/PropertySource.h"

namespace tool {

/// What a numeric sensor (CIM_NumericSensor) measures at present, in its unit, with the thresholds that are
/// set and the worst that is crossed.
///
/// The plug-in delivers a null as 0 in root/cimv2. A threshold of 0 is therefore taken as not set, unless the
/// sensor lists it and another one on the same side is not 0; and so is a reading of 0 of a sensor that is
/// not enabled.
class Reading {
public:
    /// In the order of CIM's numbers for them.
    enum Threshold {
        kLowerNonCritical,
        kUpperNonCritical,
        kLowerCritical,
        kUpperCritical,
        kLowerFatal,
        kUpperFatal,
        kThresholds  ///< How many there are.
    };

    /// The reading that the properties tell; none when they are not those of a sensor that measures.
    static std::optional<Reading> of(const PropertySource& properties);

    const Decimal& value() const { return value_; }
    const std::string& unit() const { return unit_; }  ///< Empty when unknown.
    const std::optional<Decimal>& threshold(Threshold threshold) const { return thresholds_.at(threshold); }
    std::optional<Threshold> crossed() const;

    /// For a person, safe for a terminal: `3.31 V`, or `91 °C > 85 upper non-critical`.
    std::string text() const;

    /// `normal`, or the threshold that is crossed: `upper non-critical`.
    std::string state() const;

    /// {"value", "unit", "state", "thresholds": {"upperNonCritical": NUMBER, ...}}. A number that JSON's
    /// readers would round is text.
    nlohmann::ordered_json json() const;

private:
    void addThresholds(const PropertySource& properties, int powerOfTen);
    bool isCrossed(std::size_t threshold) const;

    Decimal value_;
    std::string unit_;
    std::array<std::optional<Decimal>, kThresholds> thresholds_;
};

}  // namespace tool
