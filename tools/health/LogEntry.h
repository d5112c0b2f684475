#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tools/common/Moment.h"
#include "tools/health/Element.h"
#include "tools/health/Severity.h"
#include "tools/values/ClassSchema.h"
#include "tools/values/PropertyIndex.h"

namespace tool {

/// One entry of a node's log (CIM_LogEntry). Its texts are a server's, as they are.
struct LogEntry {
    static LogEntry of(const PropertyIndex& properties, const ClassSchema& schema);

    std::string node;
    std::string time;  ///< As the log has it.
    std::optional<Moment> moment;
    Severity severity = Severity::kUnknown;
    std::string severityText;
    std::string text;  ///< The message, else the record as it is.
    std::vector<std::string> arguments;

    /// Whether the entry is about an element: its node wrote it, and the text has the element's name or
    /// device id, or something that was filled into the message is a part of the name.
    bool names(const Element& element) const;

    bool isNewerThan(const LogEntry& other) const;
};

}  // namespace tool
