#pragma once

#include <cstddef>
#include <string>

namespace NQELVSK20 {

// CIM names (DSP0004) are identifiers that differ not by the case of their letters. What stands here looks at
// ASCII letters only and knows no locale.

/// The name with its capital letters in lower case: the key that maps by name use.
std::string NormalizedName(const std::string& name);

/// True when the names are the same but for case.
bool SameName(const std::string& left, const std::string& right);

/// Orders names as their normalised forms.
struct TNameLess {
    bool operator()(const std::string& left, const std::string& right) const;
};

/// Hash and equality of names without regard to case, for unordered containers.
struct TNameHash {
    std::size_t operator()(const std::string& name) const;
};
struct TNameEqual {
    bool operator()(const std::string& left, const std::string& right) const { return SameName(left, right); }
};

}  // namespace NQELVSK20
