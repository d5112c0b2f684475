#include "tools/print/JsonPrinter.h"

#include <nlohmann/json.hpp>

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

ordered_json jsonInstance(const InstanceView& instance, const std::vector<std::string>& columns) {
    ordered_json json;
    json["path"] = instance.path;
    json["class"] = instance.className;
    json["node"] = jsonNode(instance.node);
    json["properties"] = columns.empty() ? allProperties(instance) : chosenProperties(instance, columns);
    return json;
}

void JsonPrinter::print(const InstanceView& instance) {
    array_.add(jsonInstance(instance, columns_));
}

}  // namespace tool
