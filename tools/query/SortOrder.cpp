#include "tools/query/SortOrder.h"

#include "tools/common/UsageError.h"
#include "tools/values/NumberOf.h"
#include "tools/values/ValueText.h"

namespace tool {

namespace {

using NQELVSK20::TCIMValue;
using NQELVSK20::TContext;

// Below zero when the one comes first.
template <typename VALUE>
int order(const VALUE& one, const VALUE& other) {
    return one < other ? -1 : static_cast<int>(other < one);
}

// Values that cannot be compared stand apart, so that the order is one.
int kindOf(const SortOrder::Part& part) {
    if (part.number) {
        return 0;
    }
    if (part.moment) {
        return part.moment->isInterval ? 1 : 2;
    }
    return 3;
}

int orderOf(const SortOrder::Part& one, const SortOrder::Part& other) {
    if (kindOf(one) != kindOf(other)) {
        return order(kindOf(one), kindOf(other));
    }
    if (one.number) {
        return order(*one.number, *other.number);
    }
    if (one.moment) {
        return order(one.moment->microseconds, other.moment->microseconds);
    }
    return order(one.text, other.text);
}

SortOrder::Part partOf(const TCIMValue* value) {
    SortOrder::Part part;
    if (value != nullptr && !value->IsNull()) {
        part.isThere = true;
        part.text = value->IsArray() ? valueText(*value, nullptr) : plainText(*value);
        part.number = numberOf(*value);
        part.moment = value->IsArray() ? std::nullopt : Moment::of(part.text);
    }
    return part;
}

}  // namespace

SortOrder::SortOrder(const std::vector<std::string>& names, const ClassSchema& schema) {
    for (const std::string& name : names) {
        const bool descending = !name.empty() && name.front() == '-';
        const std::string wanted = name.substr(descending ? 1 : 0);
        const ClassSchema::Property* property = schema.findProperty(wanted);
        if (property == nullptr) {
            throw UsageError(schema.cimClass().GetName(TContext()) + " has no property '" + wanted + "'");
        }
        properties_.push_back({property->name, descending});
    }
}

SortOrder::Key SortOrder::keyOf(const PropertySource& properties) const {
    Key key;
    for (const Property& property : properties_) {
        key.push_back(partOf(properties(property.name)));
    }
    return key;
}

bool SortOrder::isBefore(const Key& one, const Key& other) const {
    for (std::size_t i = 0; i < properties_.size(); ++i) {
        if (one[i].isThere != other[i].isThere) {
            return one[i].isThere;
        }
        const int difference = orderOf(one[i], other[i]);
        if (difference != 0) {
            return (difference < 0) != properties_[i].descending;
        }
    }
    return false;
}

}  // namespace tool
