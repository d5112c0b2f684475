#pragma once

#include <optional>
#include <string>
#include <unordered_set>

#include "cimom/schema/ClassView.h"

namespace cimom {

/// Lower-case names of the properties that a client wants; absent: all.
using PropertySelection = std::optional<std::unordered_set<std::string>>;

/// What of a class a client wants to see (DSP0200, GetClass).
struct ClassOptions {
    bool localOnly = true;
    bool includeQualifiers = true;
    bool includeClassOrigin = false;
    bool flat = false;  ///< Everything, and inherited members and qualifiers like the class's own.
    PropertySelection properties;
};

/// Appends the CLASS element of a class.
void appendClass(std::string& out, const ClassView& view, const ClassOptions& options);

/// Appends a QUALIFIER with the flavor attributes that differ from the defaults of DSP0201.
void appendQualifier(std::string& out, const QualifierView& qualifier);

}  // namespace cimom
