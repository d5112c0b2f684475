#include "cimxml/wire/NameTable.h"

namespace cimxml {

KnownName& NameTable::find(std::string_view text) {
    KnownName* found = last_ == nullptr ? nullptr : last_->following;
    if (found == nullptr || found->text != text) {
        found = &look(text);
    }
    if (last_ != nullptr) {
        last_->following = found;
    }
    last_ = found;
    return *found;
}

KnownName& NameTable::look(std::string_view text) {
    const auto known = index_.find(text);
    if (known != index_.end()) {
        return *known->second;
    }
    const Pegasus::CIMName name(Pegasus::String(text.data(), static_cast<Pegasus::Uint32>(text.size())));
    KnownName& added = names_.emplace_back();
    added.text = text;
    added.name = name;
    index_.emplace(added.text, &added);
    return added;
}

}  // namespace cimxml
