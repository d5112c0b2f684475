#pragma once

#include <optional>
#include <string>

#include "tools/health/Reading.h"
#include "tools/health/Severity.h"
#include "tools/values/ClassSchema.h"
#include "tools/values/PropertyIndex.h"

namespace tool {

/// A part of a machine that has a state (CIM_ManagedSystemElement). Its texts are a server's, as they are.
struct Element {
    /// What an instance's properties tell; texts of values come from the schema of its class.
    static Element of(const PropertyIndex& properties, const std::string& path, const ClassSchema& schema);

    std::string node;
    std::string path;
    std::string className;
    std::string name;      ///< ElementName, else what else it is called.
    std::string deviceId;  ///< Empty when it has none.
    Severity severity = Severity::kUnknown;
    std::string state;        ///< What HealthState or, where that is better, OperationalStatus says of it.
    std::string description;  ///< StatusDescriptions; may be empty.
    std::optional<Reading> reading;

    /// What is the matter, for a person: the reading, the description or both.
    std::string note() const;
};

}  // namespace tool
