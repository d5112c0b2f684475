#pragma once

#include <memory>
#include <string>

#include "vskcore/ICIMProperty.h"

namespace NQELVSK20 {

/// A property of an instance in memory. It shares its name with all instances that have the property.
class TInmemProperty : public ICIMProperty {
public:
    /// `name` must not be null.
    TInmemProperty(std::shared_ptr<const std::string> name, const TCIMValue& value);

    const std::string& GetName(TContext context) const override;
    const TCIMValue& GetValue(TContext context) const override;

    const std::string& Name() const { return *name_; }
    void SetValue(const TCIMValue& value) { value_ = value; }

private:
    std::shared_ptr<const std::string> name_;
    TCIMValue value_;
};

}  // namespace NQELVSK20
