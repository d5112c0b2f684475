#pragma once

#include <nlohmann/json_fwd.hpp>

#include "tools/print/InstancePrinter.h"
#include "tools/print/JsonArray.h"

namespace tool {

/// One instance: {"path", "class", "node", "properties": {NAME: VALUE}}. `columns` names the properties to
/// give; empty: all.
nlohmann::ordered_json jsonInstance(const InstanceView& instance, const std::vector<std::string>& columns);

/// Instances as a JSON array.
class JsonPrinter : public InstancePrinter {
public:
    JsonPrinter(Output& output, const std::vector<std::string>& columns)
        : array_(output), columns_(columns) {}

    void print(const InstanceView& instance) override;
    void end() override { array_.end(); }

private:
    JsonArray array_;
    std::vector<std::string> columns_;
};

}  // namespace tool
