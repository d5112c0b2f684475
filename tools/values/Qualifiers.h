#pragma once

#include <boost/shared_ptr.hpp>
#include <optional>
#include <string>
#include <vector>

#include "tools/values/ValueMap.h"
#include "vskcore/ICIMClass.h"
#include "vskcore/ICIMNamedElement.h"
#include "vskcore/ICIMQualifier.h"

namespace tool {

using QualifierList = std::vector<boost::shared_ptr<NQELVSK20::ICIMQualifier>>;

/// A qualifier as it is shown.
struct QualifierValue {
    std::string name;
    NQELVSK20::TCIMValue value;
};

using QualifierValues = std::vector<QualifierValue>;

QualifierValues valuesOf(const QualifierList& qualifiers);

/// The qualifiers of an element, in the order of their names; shared with it.
QualifierList qualifiersOf(const NQELVSK20::ICIMNamedElement& element);

/// Those of a class, whose qualifiers hang on its other interface; none when it has not got that.
QualifierList qualifiersOf(const NQELVSK20::ICIMClass& cimClass);

/// A qualifier of a list, by name without regard to case; null when it is not there. Lives as long as the
/// list.
const NQELVSK20::ICIMQualifier* findQualifier(const QualifierList& qualifiers, const std::string& name);

/// The meaning of values that the qualifiers tell; none without "Values".
std::optional<ValueMap> valueMapIn(const QualifierList& qualifiers);
std::optional<ValueMap> valueMapIn(const QualifierValues& qualifiers);

}  // namespace tool
