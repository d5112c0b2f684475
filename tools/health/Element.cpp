#include "tools/health/Element.h"

#include <algorithm>
#include <initializer_list>

#include "tools/common/SafeText.h"
#include "tools/values/NumberOf.h"
#include "tools/values/ValueText.h"

namespace tool {

namespace {

using NQELVSK20::TCIMValue;
using NQELVSK20::TContext;

/// A severity and the value that says it.
struct Told {
    Severity severity = Severity::kUnknown;
    const TCIMValue* value = nullptr;
};

Told toldByHealthState(const PropertyIndex& properties) {
    const TCIMValue* value = properties.value("HealthState");
    const auto code = numberOf(value);
    return code ? Told{severityOfHealthState(*code), value} : Told{};
}

// The worst entry of the list.
Told toldByStatus(const PropertyIndex& properties) {
    const TCIMValue* list = properties.value("OperationalStatus");
    Told worst;
    if (list == nullptr || !list->IsArray()) {
        return worst;
    }
    for (const TCIMValue& entry : elementsOf(*list)) {
        const auto code = numberOf(entry);
        const Severity severity = code ? severityOfStatus(*code) : Severity::kUnknown;
        if (worst.value == nullptr || severity > worst.severity) {
            worst = {severity, &entry};
        }
    }
    return worst;
}

std::string meaningOf(const TCIMValue* value, const ValueMap* meanings) {
    if (value == nullptr) {
        return {};
    }
    const auto text = meanings == nullptr ? std::nullopt : meanings->textOf(*value);
    return text ? *text : plainText(*value);
}

std::string firstOf(const PropertyIndex& properties, std::initializer_list<const char*> names) {
    for (const char* name : names) {
        std::string text = properties.text(name);
        if (!text.empty()) {
            return text;
        }
    }
    return {};
}

std::string joinedTexts(const TCIMValue* list) {
    std::string joined;
    if (list != nullptr && list->IsArray()) {
        for (const TCIMValue& entry : elementsOf(*list)) {
            const std::string text = entry.IsNull() ? std::string() : plainText(entry);
            joined += (joined.empty() || text.empty() ? "" : ", ") + text;
        }
    }
    return joined;
}

}  // namespace

Element Element::of(const PropertyIndex& properties, const std::string& path, const ClassSchema& schema) {
    Element element;
    element.node = properties.text("NodeID");
    element.path = path;
    element.className = schema.cimClass().GetName(TContext());
    element.name = firstOf(properties, {"ElementName", "Name", "DeviceID", "Tag", "InstanceID"});
    element.name = element.name.empty() ? path : element.name;
    element.deviceId = properties.text("DeviceID");
    const Told health = toldByHealthState(properties);
    const Told status = toldByStatus(properties);
    element.severity = std::max(health.severity, status.severity);
    element.state = status.severity > health.severity
                        ? meaningOf(status.value, schema.valueMapOf("OperationalStatus"))
                        : meaningOf(health.value, schema.valueMapOf("HealthState"));
    element.description = joinedTexts(properties.value("StatusDescriptions"));
    element.reading = Reading::of(properties.source());
    return element;
}

std::string Element::note() const {
    if (!reading) {
        return safeText(description);
    }
    const bool isSaid = reading->crossed() || !isIll(severity) || description.empty();
    return reading->text() + (isSaid ? "" : ", " + safeText(description));
}

}  // namespace tool
