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

    /// Class and keys are the same, whatever their order and the case of names.
    bool isSame(const ObjectPath& other) const;

    /// Throws UsageError that says where the text stops being a path. In quotes, `\` stands before a
    /// quotation mark, itself, or what is printed for a character that is not safe: \n, \r, \t, \x1b, \u202e.
    static ObjectPath parse(const std::string& text);
};

/// Whether the path has not all keys of the class.
bool lacksKey(const ObjectPath& path, const ClassSchema& schema);

/// The path as the plug-in spells that of an instance: names as declared, keys in the order of their names,
/// values quoted as their types want it, even if a shell took the quotes away. Throws UsageError when the
/// path has a key that the class has not, lacks one, or has a value that is none of the key's type.
std::string instancePath(const ObjectPath& path, const ClassSchema& schema);

}  // namespace tool
