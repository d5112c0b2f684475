#include "vskcore/CimNames.h"

#include <algorithm>
#include <cstdint>

namespace NQELVSK20 {

namespace {

char Lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

}  // namespace

std::string NormalizedName(const std::string& name) {
    std::string normalized = name;
    std::transform(normalized.begin(), normalized.end(), normalized.begin(), Lower);
    return normalized;
}

bool SameName(const std::string& left, const std::string& right) {
    return left == right ||  // as most are
           (left.size() == right.size() &&
            std::equal(left.begin(), left.end(), right.begin(),
                       [](char one, char other) { return Lower(one) == Lower(other); }));
}

bool TNameLess::operator()(const std::string& left, const std::string& right) const {
    return std::lexicographical_compare(
        left.begin(), left.end(), right.begin(), right.end(), [](char one, char other) {
            return static_cast<unsigned char>(Lower(one)) < static_cast<unsigned char>(Lower(other));
        });
}

std::size_t TNameHash::operator()(const std::string& name) const {
    std::uint64_t hash = 14695981039346656037U;  // FNV-1a
    for (const char letter : name) {
        hash = (hash ^ static_cast<unsigned char>(Lower(letter))) * 1099511628211U;
    }
    return static_cast<std::size_t>(hash);
}

}  // namespace NQELVSK20
