#include "tools/print/JsonPrinter.h"

#include <nlohmann/json.hpp>
#include <optional>

#include "tools/print/ReadingColumn.h"
#include "tools/values/JsonValue.h"

namespace tool {

using nlohmann::ordered_json;
using NQELVSK20::TContext;

namespace {

ordered_json allProperties(const InstanceView& instance) {
    ordered_json properties = ordered_json::object();
    for (const auto& property : instance.properties) {
        properties[property->GetName(TContext())] = jsonValue(instance.valueOf(*property));
    }
    return properties;
}

ordered_json chosenProperties(const InstanceView& instance, const std::vector<std::string>& columns) {
    ordered_json properties = ordered_json::object();
    for (const std::string& column : columns) {
        const NQELVSK20::TCIMValue* value = instance.value(column);
        properties[column] = value == nullptr ? ordered_json(nullptr) : jsonValue(*value);
    }
    return properties;
}

}  // namespace

ordered_json jsonInstance(const InstanceView& instance, const JsonParts& parts) {
    ordered_json json;
    json["path"] = instance.path;
    json["class"] = instance.className;
    json["node"] = jsonNode(instance.node);
    json["properties"] =
        parts.properties ? chosenProperties(instance, *parts.properties) : allProperties(instance);
    const auto reading = parts.reading ? readingOf(instance) : std::nullopt;
    if (reading) {
        json["reading"] = reading->json();
    }
    return json;
}

JsonPrinter::JsonPrinter(Output& output, const std::vector<std::string>& columns, const ClassSchema& schema)
    : array_(output) {
    if (columns.empty()) {
        return;
    }
    parts_ = {std::vector<std::string>(), false};
    for (const std::string& column : columns) {
        if (isReadingColumn(column, schema)) {
            parts_.reading = true;
        } else {
            parts_.properties->push_back(column);
        }
    }
}

void JsonPrinter::print(const InstanceView& instance) {
    array_.add(jsonInstance(instance, parts_));
}

}  // namespace tool
