#pragma once

#include <nlohmann/json_fwd.hpp>

#include "tools/console/Output.h"

namespace tool {

/// A JSON array that is written element by element, for answers that may be long.
class JsonArray {
public:
    /// `output` must outlive the array.
    explicit JsonArray(Output& output) : output_(output) {}

    void add(const nlohmann::ordered_json& element);

    /// Closes the array; to be called once, after the last element.
    void end();

private:
    Output& output_;
    bool empty_ = true;
};

}  // namespace tool
