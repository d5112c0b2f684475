#pragma once

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMType.h>
#include <Pegasus/Common/CIMValue.h>

#include <string>

namespace cimxml {

/// A name of an answer, and what was read under it last: from one instance to the next, half of the
/// properties keep their value.
struct KnownName {
    std::string text;
    Pegasus::CIMName name;
    KnownName* following = nullptr;  ///< The name that came after this one last time.

    /// The value remembered, when it was read from these texts, each with a NUL behind it, as one of this
    /// type; else null.
    const Pegasus::CIMValue* recall(const std::string& texts, Pegasus::CIMType type, bool array) const;
    void remember(const std::string& texts, const Pegasus::CIMValue& value);

private:
    std::string texts_;  // empty: no value is remembered
    Pegasus::CIMValue value_;
};

}  // namespace cimxml
