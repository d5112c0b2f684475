#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tools/common/Decimal.h"
#include "tools/common/Moment.h"
#include "tools/values/ClassSchema.h"
#include "tools/values/PropertySource.h"

namespace tool {

/// Which of two instances comes first: by one property after the other, each as its type wants it. What has
/// no value comes last.
class SortOrder {
public:
    /// `names` as a person gives them, `-NAME` for the other way round. Throws UsageError when the class has
    /// no such property.
    SortOrder(const std::vector<std::string>& names, const ClassSchema& schema);

    /// What one property of an instance counts for.
    struct Part {
        bool isThere = false;
        std::optional<Decimal> number;
        std::optional<Moment> moment;
        std::string text;
    };
    using Key = std::vector<Part>;

    Key keyOf(const PropertySource& properties) const;
    bool isBefore(const Key& one, const Key& other) const;

private:
    struct Property {
        std::string name;
        bool descending;
    };

    std::vector<Property> properties_;
};

}  // namespace tool
