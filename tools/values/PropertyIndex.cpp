#include "tools/values/PropertyIndex.h"

#include "tools/values/ValueText.h"

namespace tool {

using namespace NQELVSK20;

PropertyIndex::PropertyIndex(const ICIMInstance& instance) {
    instance.EnumerateProperties(
        [this](const boost::shared_ptr<ICIMProperty>& property) {
            properties_.emplace(property->GetName(TContext()), property);
            return true;
        },
        TContext());
}

const TCIMValue* PropertyIndex::value(const std::string& property) const {
    const auto found = properties_.find(property);
    return found == properties_.end() ? nullptr : &found->second->GetValue(TContext());
}

std::string PropertyIndex::text(const std::string& property) const {
    const TCIMValue* found = value(property);
    return found == nullptr || found->IsNull() || found->IsArray() ? std::string() : plainText(*found);
}

PropertySource PropertyIndex::source() const {
    return [this](const std::string& property) { return value(property); };
}

}  // namespace tool
