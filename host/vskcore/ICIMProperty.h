#pragma once

#include <string>

#include "vskcore/TCIMValue.h"

namespace NQELVSK20 {

/// A property of an instance: a name, as the class declares it, and a value.
class ICIMProperty {
public:
    virtual ~ICIMProperty() = default;
    virtual const std::string& GetName(TContext context) const = 0;

    /// The value; lives as long as the property and changes when the instance's value is set.
    virtual const TCIMValue& GetValue(TContext context) const = 0;
};

}  // namespace NQELVSK20
