#pragma once

#include <string>
#include <vector>

#include "tools/values/ClassSchema.h"

namespace tool {

/// An object path as a person types it: [//HOST/][NAMESPACE:]CLASS[.KEY=VALUE,...] (DSP0004). Host and
/// namespace are left aside: the session has its own.
struct ObjectPath {
    struct Key {
        std::string name;
        std::string text;  ///< Without quotes and escapes.
    };

    std::string className;
    std::vector<Key> keys;  ///< None: the path names the class.

    /// Throws UsageError that says where the text stops being a path.
    static ObjectPath parse(const std::string& text);
};

/// The path as the plug-in spells that of an instance: names as declared, keys in the order of their names,
/// values quoted as their types want it, even if a shell took the quotes away. Throws UsageError when the
/// path has a key that the class has not, or lacks one.
std::string instancePath(const ObjectPath& path, const ClassSchema& schema);

}  // namespace tool
