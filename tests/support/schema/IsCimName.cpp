#include "tests/support/schema/IsCimName.h"

#include <algorithm>

namespace NQELVSK20 {

namespace {

bool IsNameLetter(char letter) {
    return letter == '_' || (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z');
}

bool IsNameLetterOrDigit(char letter) {
    return IsNameLetter(letter) || (letter >= '0' && letter <= '9');
}

}  // namespace

bool IsCimName(const std::string& name) {
    return !name.empty() && IsNameLetter(name.front()) &&
           std::all_of(name.begin(), name.end(), IsNameLetterOrDigit);
}

}  // namespace NQELVSK20
