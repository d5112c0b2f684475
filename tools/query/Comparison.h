#pragma once

#include <optional>
#include <string>

#include "tools/common/Decimal.h"
#include "tools/common/Moment.h"
#include "tools/query/Token.h"
#include "tools/values/ClassSchema.h"
#include "tools/values/PropertySource.h"

namespace tool {

/// A property compared with a value, as the property's type wants it: numbers as numbers, datetimes by when
/// they are, text as text. A value may be given by its name (ValueMap). Of an array one element has to fit.
/// What is null or not there only differs.
class Comparison {
public:
    /// Throws UsageError that points at the property when the class has none of that name, at the operator or
    /// at the value when they do not go with it. `schema` must outlive the comparison.
    Comparison(const Token& property, const Token& comparator, const Token& value, const ClassSchema& schema);

    bool holds(const PropertySource& properties) const;

private:
    enum class Operator { kEqual, kLess, kLessOrEqual, kGreater, kGreaterOrEqual, kContains };

    void readOperator(const Token& comparator);
    void readValue(const Token& value, const ClassSchema::Property& property);
    void readNumber(const Token& value);
    void readMoment(const Token& value);
    bool fits(const NQELVSK20::TCIMValue& scalar) const;
    bool fitsText(const NQELVSK20::TCIMValue& scalar) const;
    template <typename VALUE>
    bool compare(const VALUE& left, const VALUE& right) const;

    std::string property_;
    Operator operator_ = Operator::kEqual;
    bool negated_ = false;
    std::string text_;
    std::optional<Decimal> number_;
    std::optional<Moment> moment_;
    const ValueMap* meanings_;
};

/// What of a person's way to write a date a datetime is made of: `2024-09-11`, `2024-09-11 14:02`, or CIM's
/// own; none when it is no date.
std::optional<Moment> momentTyped(const std::string& text);

}  // namespace tool
