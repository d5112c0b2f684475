#include "cimxml/wire/KnownName.h"

namespace cimxml {

const Pegasus::CIMValue* KnownName::recall(const std::string& texts, Pegasus::CIMType type,
                                           bool array) const {
    const bool isSame =
        !texts.empty() && texts == texts_ && value_.getType() == type && value_.isArray() == array;
    return isSame ? &value_ : nullptr;
}

void KnownName::remember(const std::string& texts, const Pegasus::CIMValue& value) {
    texts_ = texts;
    value_ = value;
}

}  // namespace cimxml
