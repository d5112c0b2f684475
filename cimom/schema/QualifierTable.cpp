#include "cimom/schema/QualifierTable.h"

#include "cimom/common/Text.h"

namespace cimom {
namespace {

bool readFlag(pugi::xml_node element, const char* name, bool otherwise) {
    const pugi::xml_attribute attribute = element.attribute(name);
    return attribute.empty() ? otherwise : sameName(attribute.value(), "true");
}

Flavor readFlavor(pugi::xml_node element, const Flavor& otherwise) {
    Flavor flavor;
    flavor.overridable = readFlag(element, "OVERRIDABLE", otherwise.overridable);
    flavor.toSubclass = readFlag(element, "TOSUBCLASS", otherwise.toSubclass);
    flavor.toInstance = readFlag(element, "TOINSTANCE", otherwise.toInstance);
    flavor.translatable = readFlag(element, "TRANSLATABLE", otherwise.translatable);
    return flavor;
}

}  // namespace

void QualifierTable::declare(pugi::xml_node declaration) {
    const std::string key = lowered(declaration.attribute("NAME").value());
    const auto [entry, isNew] = indexByName_.try_emplace(key, declarations_.size());
    if (isNew) {
        declarations_.push_back(declaration);
    } else {
        declarations_[entry->second] = declaration;
    }
}

void QualifierTable::remove(const std::string& name) {
    const auto found = indexByName_.find(lowered(name));
    if (found == indexByName_.end()) {
        return;
    }
    const std::size_t index = found->second;
    declarations_.erase(declarations_.begin() + static_cast<std::ptrdiff_t>(index));
    indexByName_.erase(found);
    for (auto& entry : indexByName_) {
        entry.second -= entry.second > index ? 1 : 0;
    }
}

pugi::xml_node QualifierTable::find(const std::string& name) const {
    const auto found = indexByName_.find(lowered(name));
    return found == indexByName_.end() ? pugi::xml_node() : declarations_[found->second];
}

Flavor QualifierTable::flavorOf(pugi::xml_node qualifier) const {
    Flavor declared;
    if (const pugi::xml_node declaration = find(qualifier.attribute("NAME").value())) {
        declared = readFlavor(declaration, declared);
    }
    return readFlavor(qualifier, declared);
}

}  // namespace cimom
