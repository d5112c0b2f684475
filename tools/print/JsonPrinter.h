#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <vector>

#include "tools/print/InstancePrinter.h"
#include "tools/print/JsonArray.h"

namespace tool {

/// What of an instance is to be given.
struct JsonParts {
    std::optional<std::vector<std::string>> properties;  ///< None: all.
    bool reading = true;
};

/// One instance: {"path", "class", "node", "properties": {NAME: VALUE}}, and of a sensor, beside the values
/// as they are, the "reading" (see Reading).
nlohmann::ordered_json jsonInstance(const InstanceView& instance, const JsonParts& parts);

/// Instances as a JSON array.
class JsonPrinter : public InstancePrinter {
public:
    /// `schema` is that of the class that was asked for; without columns everything is given.
    JsonPrinter(Output& output, const std::vector<std::string>& columns, const ClassSchema& schema);

    void print(const InstanceView& instance) override;
    void end() override { array_.end(); }

private:
    JsonArray array_;
    JsonParts parts_;
};

}  // namespace tool
