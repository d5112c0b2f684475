#include "cimom/data/InstanceStore.h"

#include <algorithm>
#include <set>
#include <stdexcept>

#include "cimom/common/CimType.h"

namespace cimom {
namespace {

using Templates = std::vector<const Instance*>;

std::string keyValue(const Instance& instance, std::size_t key) {
    return instance.path().keys[key].canonical;
}

bool canChange(const KeyBinding& key) {
    return key.kind == KeyBinding::Kind::String || key.kind == KeyBinding::Kind::Numeric;
}

/// The key that tells the instances apart: the last one whose values differ, else the last one.
std::size_t distinguishingKey(const Templates& templates) {
    const std::vector<KeyBinding>& keys = templates.front()->path().keys;
    std::size_t last = keys.size();
    for (std::size_t key = keys.size(); key-- > 0;) {
        std::set<std::string> values;
        for (const Instance* instance : templates) {
            values.insert(keyValue(*instance, key));
        }
        if (canChange(keys[key]) && values.size() > 1) {
            return key;
        }
        last = canChange(keys[key]) && last == keys.size() ? key : last;
    }
    if (last == keys.size()) {
        throw std::runtime_error("the instances of '" + templates.front()->type().name +
                                 "' have no text or number as a key and cannot be repeated");
    }
    return last;
}

/// The `number`-th value made out of a key's value; throws when its type cannot hold it.
std::string variantOf(const KeyBinding& key, const std::string& type, std::size_t number) {
    if (key.kind == KeyBinding::Kind::String) {
        return key.value + " #" + std::to_string(number);
    }
    const auto fitting = canonicalValue(type, std::to_string(number));
    if (!fitting) {
        throw std::runtime_error("the key '" + key.name + "' of type " + type + " cannot hold " +
                                 std::to_string(number));
    }
    return *fitting;
}

}  // namespace

void InstanceStore::add(Instance instance) {
    const auto [entry, isNew] = indexByPath_.try_emplace(instance.path().canonical(), instances_.size());
    if (isNew) {
        instances_.push_back(std::make_unique<Instance>(std::move(instance)));
    } else {
        *instances_[entry->second] = std::move(instance);
    }
}

Instance* InstanceStore::find(const ObjectPath& path) {
    const auto found = indexByPath_.find(path.canonical());
    return found == indexByPath_.end() ? nullptr : instances_[found->second].get();
}

const Instance* InstanceStore::find(const std::string& canonicalPath) const {
    const auto found = indexByPath_.find(canonicalPath);
    return found == indexByPath_.end() ? nullptr : instances_[found->second].get();
}

void InstanceStore::remove(const Instance& instance) {
    const auto found = std::find_if(instances_.begin(), instances_.end(),
                                    [&](const auto& known) { return known.get() == &instance; });
    if (found != instances_.end()) {
        instances_.erase(found);
        rebuildIndex();
    }
}

std::vector<const Instance*> InstanceStore::ofClassAndBelow(const ClassView& type) const {
    std::vector<const Instance*> found;
    for (const auto& instance : instances_) {
        if (instance->type().isOrInherits(type)) {
            found.push_back(instance.get());
        }
    }
    return found;
}

void InstanceStore::multiply(const ClassView& type, std::size_t count) {
    Templates templates;
    for (const auto& instance : instances_) {
        if (&instance->type() == &type) {
            templates.push_back(instance.get());
        }
    }
    if (templates.empty()) {
        throw std::runtime_error("the class '" + type.name + "' has no instances that could be repeated");
    }
    if (count > templates.size()) {
        const std::size_t key = distinguishingKey(templates);
        for (std::size_t i = templates.size(); i < count; ++i) {
            addVariant(*templates[i % templates.size()], key, i);
        }
    }
    removeBeyond(type, count);
}

void InstanceStore::addVariant(const Instance& original, std::size_t key, std::size_t number) {
    const KeyBinding& binding = original.path().keys[key];
    const std::string type =
        original.type()
            .properties[static_cast<std::size_t>(original.type().findProperty(binding.name))]
            .type();
    Instance copy = original;
    do {
        copy.setValue(binding.name, variantOf(binding, type, number++));
    } while (find(copy.path()) != nullptr);
    add(std::move(copy));
}

void InstanceStore::removeBeyond(const ClassView& type, std::size_t count) {
    std::size_t seen = 0;
    const auto firstRemoved =
        std::remove_if(instances_.begin(), instances_.end(), [&](const std::unique_ptr<Instance>& instance) {
            return &instance->type() == &type && seen++ >= count;
        });
    if (firstRemoved != instances_.end()) {
        instances_.erase(firstRemoved, instances_.end());
        rebuildIndex();
    }
}

void InstanceStore::rebuildIndex() {
    indexByPath_.clear();
    for (std::size_t i = 0; i < instances_.size(); ++i) {
        indexByPath_[instances_[i]->path().canonical()] = i;
    }
}

void InstanceStore::reindex(const ClassView& redefined) {
    for (const auto& instance : instances_) {
        if (instance->type().isOrInherits(redefined)) {
            instance->reindex();
        }
    }
}

}  // namespace cimom
