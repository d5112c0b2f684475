#pragma once

#include <map>
#include <string>
#include <utility>

#include "tools/common/Names.h"
#include "tools/values/PropertySource.h"

namespace tool {

/// Properties of an instance that is none.
class Properties {
public:
    using Values = std::map<std::string, NQELVSK20::TCIMValue, NameLess>;

    explicit Properties(Values values) : values_(std::move(values)) {}

    Properties& set(const std::string& name, const NQELVSK20::TCIMValue& value) {
        values_[name] = value;
        return *this;
    }

    /// Lives as long as this object.
    PropertySource source() const {
        return [this](const std::string& name) {
            const auto found = values_.find(name);
            return found == values_.end() ? nullptr : &found->second;
        };
    }

private:
    Values values_;
};

}  // namespace tool
