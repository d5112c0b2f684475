#include "tools/health/Reading.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "tools/common/Integer.h"
#include "tools/common/SafeText.h"
#include "tools/health/Unit.h"
#include "tools/values/JsonDecimal.h"
#include "tools/values/NumberOf.h"
#include "tools/values/ValueText.h"

namespace tool {

namespace {

using NQELVSK20::TCIMValue;

struct ThresholdNames {
    const char* property;
    const char* text;
    const char* key;
};

constexpr std::array<ThresholdNames, Reading::kThresholds> kThresholdNames = {
    ThresholdNames{"LowerThresholdNonCritical", "lower non-critical", "lowerNonCritical"},
    {"UpperThresholdNonCritical", "upper non-critical", "upperNonCritical"},
    {"LowerThresholdCritical", "lower critical", "lowerCritical"},
    {"UpperThresholdCritical", "upper critical", "upperCritical"},
    {"LowerThresholdFatal", "lower fatal", "lowerFatal"},
    {"UpperThresholdFatal", "upper fatal", "upperFatal"}};

constexpr bool isUpper(std::size_t threshold) {
    return threshold % 2 != 0;
}

std::vector<std::string> textsOf(const TCIMValue* list) {
    std::vector<std::string> texts;
    if (list != nullptr && list->IsArray()) {
        for (const TCIMValue& element : elementsOf(*list)) {
            texts.push_back(plainText(element));
        }
    }
    return texts;
}

// The thresholds that the sensor says to have; those in use come before those that could be.
std::vector<std::string> listedThresholds(const PropertySource& properties) {
    const std::vector<std::string> enabled = textsOf(properties("EnabledThresholds"));
    return enabled.empty() ? textsOf(properties("SupportedThresholds")) : enabled;
}

// CIM's "Disabled" and "Enabled but Offline".
bool isSwitchedOff(const PropertySource& properties) {
    const auto state = numberOf(properties("EnabledState"));
    return state && (state->text() == "3" || state->text() == "6");
}

bool tellsUnit(const PropertySource& properties) {
    return properties("BaseUnits") != nullptr || properties("UnitModifier") != nullptr ||
           properties("ProgrammaticUnits") != nullptr;
}

}  // namespace

std::optional<Reading> Reading::of(const PropertySource& properties) {
    const auto raw = numberOf(properties("CurrentReading"));
    if (!raw || !tellsUnit(properties) || (raw->isZero() && isSwitchedOff(properties))) {
        return std::nullopt;
    }
    const Unit unit = Unit::of(properties);
    Reading reading;
    reading.value_ = raw->scaledBy(unit.powerOfTen);
    reading.unit_ = unit.symbol;
    reading.addThresholds(properties, unit.powerOfTen);
    return reading;
}

void Reading::addThresholds(const PropertySource& properties, int powerOfTen) {
    const std::vector<std::string> listed = listedThresholds(properties);
    const auto isListed = [&](std::size_t threshold) {
        return std::find(listed.begin(), listed.end(), std::to_string(threshold)) != listed.end();
    };
    for (std::size_t i = 0; i < kThresholds; ++i) {
        const auto raw = numberOf(properties(kThresholdNames.at(i).property));
        if (raw && (listed.empty() || isListed(i))) {
            thresholds_.at(i) = raw->scaledBy(powerOfTen);
        }
    }
    const auto isSet = [&](std::size_t threshold) {
        return thresholds_.at(threshold) && !thresholds_.at(threshold)->isZero();
    };
    const auto hasSetNeighbour = [&](std::size_t threshold) {
        const std::size_t side = threshold % 2;
        return isSet(side) || isSet(side + 2) || isSet(side + 4);
    };
    for (std::size_t i = 0; i < kThresholds; ++i) {
        if (!isSet(i) && !(isListed(i) && hasSetNeighbour(i))) {
            thresholds_.at(i).reset();
        }
    }
}

bool Reading::isCrossed(std::size_t threshold) const {
    const auto& limit = thresholds_.at(threshold);
    return limit && (isUpper(threshold) ? *limit < value_ : value_ < *limit);
}

std::optional<Reading::Threshold> Reading::crossed() const {
    for (std::size_t i = kThresholds; i-- > 0;) {
        if (isCrossed(i)) {
            return static_cast<Threshold>(i);
        }
    }
    return std::nullopt;
}

std::string Reading::state() const {
    const auto threshold = crossed();
    return threshold ? kThresholdNames.at(*threshold).text : "normal";
}

std::string Reading::text() const {
    std::string text = value_.text() + (unit_.empty() ? "" : " " + safeText(unit_));
    if (const auto threshold = crossed()) {
        text += (isUpper(*threshold) ? " > " : " < ") + thresholds_.at(*threshold)->text() + ' ' +
                kThresholdNames.at(*threshold).text;
    }
    return text;
}

nlohmann::ordered_json Reading::json() const {
    nlohmann::ordered_json json;
    json["value"] = jsonDecimal(value_);
    json["unit"] = unit_;
    json["state"] = state();
    json["thresholds"] = nlohmann::ordered_json::object();
    for (std::size_t i = 0; i < kThresholds; ++i) {
        if (thresholds_.at(i)) {
            json["thresholds"][kThresholdNames.at(i).key] = jsonDecimal(*thresholds_.at(i));
        }
    }
    return json;
}

}  // namespace tool
