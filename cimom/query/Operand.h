#pragma once

#include <optional>
#include <string>

#include "cimom/data/Instance.h"

namespace cimom {

/// One side of a comparison: a property of the instance, or a value that the query has itself.
struct Operand {
    enum class Kind { Text, Number, Boolean, Reference, Array, Null };

    Kind kind = Kind::Null;
    std::string property;  ///< Empty: `literal` it is.
    std::string literal;

    /// What it is for an instance; nothing when it is null.
    std::optional<std::string> valueFor(const Instance& instance) const;

    /// Of a property of a class. "__CLASS" is the name of the instance's own class.
    static Operand ofProperty(const MemberView& member);
    static Operand ofClassName();
};

/// Less than, equal to or greater than zero, as one value of a kind is less than, equal to or greater than
/// another. Integers are compared exactly, whatever their size.
int compareValues(Operand::Kind kind, const std::string& one, const std::string& other);

}  // namespace cimom
