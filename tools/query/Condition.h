#pragma once

#include <functional>
#include <string>

#include "tools/values/ClassSchema.h"
#include "tools/values/PropertySource.h"

namespace tool {

/// What instances have to fulfil: comparisons, joined by `and`, `or` and `not`, with parentheses where `not`
/// before `and` before `or` is not meant: `HealthState!=OK and (ElementName~fan or CurrentReading>=85)`.
class Condition {
public:
    /// For instances of the schema's class, which must outlive the condition. Throws UsageError that says
    /// where the text is none.
    Condition(const std::string& text, const ClassSchema& schema);

    bool holds(const PropertySource& properties) const { return test_(properties); }

private:
    std::function<bool(const PropertySource&)> test_;
};

}  // namespace tool
