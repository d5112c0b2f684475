#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "cimom/data/Instance.h"

namespace cimom {

/// The instances of a namespace, in order of declaration.
class InstanceStore {
public:
    /// Adds an instance or puts it in the place of the one with the same path.
    void add(Instance instance);

    /// The instance of that path, or null; owned by the store.
    Instance* find(const ObjectPath& path);

    /// The instance of that canonical path, or null; owned by the store.
    const Instance* find(const std::string& canonicalPath) const;

    /// Takes an instance of this store out of it.
    void remove(const Instance& instance);

    /// All instances. Owned by the store.
    const std::vector<std::unique_ptr<Instance>>& all() const { return instances_; }

    /// The instances of `type` and of all classes that inherit from it. Owned by the store.
    std::vector<const Instance*> ofClassAndBelow(const ClassView& type) const;

    /// Makes `count` instances of exactly this class by repeating those that are there, each time with a
    /// changed key. Throws std::runtime_error when there is none or it has no key that can be changed.
    void multiply(const ClassView& type, std::size_t count);

    /// After a class was redefined: finds the properties of its instances and of those below it anew.
    void reindex(const ClassView& redefined);

private:
    /// Adds a copy whose key is a variant with the first free number from `number` up.
    void addVariant(const Instance& original, std::size_t key, std::size_t number);
    void removeBeyond(const ClassView& type, std::size_t count);
    void rebuildIndex();

    std::vector<std::unique_ptr<Instance>> instances_;
    std::unordered_map<std::string, std::size_t> indexByPath_;
};

}  // namespace cimom
