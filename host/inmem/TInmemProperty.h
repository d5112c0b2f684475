#pragma once

#include <string>

#include "vskcore/ICIMProperty.h"

namespace NQELVSK20 {

/// A property of an instance in memory, or the place for one that was not set.
class TInmemProperty final : public ICIMProperty {
public:
    TInmemProperty() = default;

    /// Keeps the name by its address: the layout of the class owns it, for all instances.
    TInmemProperty(const std::string& name, const TCIMValue& value);

    const std::string& GetName(TContext context) const override;
    const TCIMValue& GetValue(TContext context) const override;

    bool IsSet() const { return name_ != nullptr; }
    const TCIMValue& Value() const { return value_; }
    void Set(const std::string& name, const TCIMValue& value);

private:
    const std::string* name_ = nullptr;
    TCIMValue value_;
};

}  // namespace NQELVSK20
