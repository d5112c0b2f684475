#pragma once

#include <string>

namespace NQELVSK20 {

/// The name of the pseudo class at the top of every class tree. No server has a class of that name.
constexpr const char* kRootClassName = "<root>";

/// The name under which every class has the property that tells which node an instance came from, as declared
/// and as key.
constexpr const char* kNodeIdName = "NodeID";
constexpr const char* kNodeIdKey = "nodeid";

/// The key under which names are kept: `name` in lower case. An empty name is valid; one that is no CIM
/// identifier (DSP0004) is logged and thrown as status 25.
std::string NormalizeName(const std::string& name);

/// How names of elements compare: as their normalised forms do. The exception for a malformed name passes.
bool EqualByName(const std::string& left, const std::string& right);
bool LessByName(const std::string& left, const std::string& right);

/// What a map keeps under the normalised form of a name; empty when it keeps nothing there. The exception for
/// a malformed name passes.
template <class TMap>
typename TMap::mapped_type FindByName(const TMap& entries, const std::string& name) {
    const auto entry = entries.find(NormalizeName(name));
    return entry == entries.end() ? typename TMap::mapped_type() : entry->second;
}

/// Calls back with what a map keeps, in the order of its keys, until false. The callback may add entries,
/// which leaves the walk's place in the map as it is.
template <class TMap, class TCallback>
void CallUntilFalse(const TMap& entries, const TCallback& callback) {
    for (const auto& entry : entries) {
        if (!callback(entry.second)) {
            return;
        }
    }
}

/// A text that is the same for all object paths (DSP0004) that name the same object of a namespace: host and
/// namespace left out, class and key names in lower case, keys in one order, references among the key values
/// treated likewise. Empty for a malformed path. Good for comparing only; it is no path itself.
std::string CanonicalPath(const std::string& path);

}  // namespace NQELVSK20
