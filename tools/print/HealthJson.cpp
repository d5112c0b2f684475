#include "tools/print/HealthJson.h"

#include <nlohmann/json.hpp>

#include "tools/values/JsonValue.h"

namespace tool {

namespace {

using nlohmann::ordered_json;

ordered_json jsonEntries(const std::vector<LogEntry>& entries) {
    ordered_json array = ordered_json::array();
    for (const LogEntry& entry : entries) {
        ordered_json json;
        json["node"] = jsonNode(entry.node);
        json["time"] = entry.time;
        json["severity"] = nameOf(entry.severity);
        json["text"] = entry.text;
        array.push_back(std::move(json));
    }
    return array;
}

ordered_json jsonElement(const Element& element, const HealthReport& report) {
    ordered_json json;
    json["node"] = jsonNode(element.node);
    json["path"] = element.path;
    json["class"] = element.className;
    json["name"] = element.name;
    json["severity"] = nameOf(element.severity);
    json["state"] = element.state;
    json["description"] = element.description;
    if (element.reading) {
        json["reading"] = element.reading->json();
    }
    json["log"] = jsonEntries(report.entriesOf(element));
    return json;
}

}  // namespace

ordered_json jsonHealth(const HealthReport& report, bool all) {
    ordered_json json;
    json["severity"] = nameOf(report.worst());
    json["elements"] = report.elements().size();
    json["notWell"] = report.ill();
    json["noState"] = report.unknown();
    json["found"] = ordered_json::array();
    for (const Element& element : report.elements()) {
        if (all || isIll(element.severity)) {
            json["found"].push_back(jsonElement(element, report));
        }
    }
    json["log"] = jsonEntries(report.otherEntries());
    return json;
}

}  // namespace tool
