#include "inmem/TInmemProperties.h"

#include <utility>

#include "vskcore/KeyText.h"
#include "vskcore/TVSKException.h"

namespace NQELVSK20 {

TInmemProperties::TInmemProperties(std::shared_ptr<TClassLayout> layout) : layout_(std::move(layout)) {}

TInmemProperty* TInmemProperties::Find(const std::string& name) {
    return At(PositionOf(name));
}

void TInmemProperties::Set(const std::string& name, const TCIMValue& value) {
    const std::size_t position = PositionOf(name);
    const std::string& declared = layout_->NameAt(position);
    if (position == properties_.size()) {
        properties_.emplace_back(declared, value);
        return;
    }
    if (position > properties_.size()) {
        properties_.resize(position + 1);
    }
    properties_[position].Set(declared, value);
}

std::vector<TInmemProperty*> TInmemProperties::InOrder() {
    std::vector<TInmemProperty*> all;
    for (const std::size_t position : layout_->InNameOrder()) {
        if (TInmemProperty* property = At(position)) {
            all.push_back(property);
        }
    }
    return all;
}

void TInmemProperties::AppendKeys(std::string& path) {
    bool first = true;
    for (const TClassLayout::TKey& key : layout_->Keys()) {
        if (const TInmemProperty* property = At(key.position)) {
            AppendKey(path, first, key.name, property->Value());
        }
    }
}

/// Where the layout has a property; throws status 15 when no class of the chain declares it.
std::size_t TInmemProperties::PositionOf(const std::string& name) {
    const std::size_t position = layout_->PositionOf(name, expected_);
    if (position == TClassLayout::kNowhere) {
        throw TVSKException(eVSKNotFound);
    }
    expected_ = position + 1;
    return position;
}

/// The property at a position; null when it was not set.
TInmemProperty* TInmemProperties::At(std::size_t position) {
    const bool isSet = position < properties_.size() && properties_[position].IsSet();
    return isSet ? &properties_[position] : nullptr;
}

}  // namespace NQELVSK20
