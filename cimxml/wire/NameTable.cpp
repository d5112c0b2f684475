#include "cimxml/wire/NameTable.h"

namespace cimxml {

const Pegasus::CIMName& NameTable::find(std::string_view text) {
    const auto known = names_.find(text);
    if (known != names_.end()) {
        return known->second;
    }
    const Pegasus::CIMName name(Pegasus::String(text.data(), static_cast<Pegasus::Uint32>(text.size())));
    texts_.emplace_back(text);
    return names_.emplace(texts_.back(), name).first->second;
}

}  // namespace cimxml
