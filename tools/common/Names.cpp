#include "tools/common/Names.h"

#include <algorithm>

#include "tools/common/Integer.h"
#include "tools/common/SafeText.h"
#include "tools/common/UsageError.h"

namespace tool {

namespace {

char lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool isLetter(char letter) {
    return letter == '_' || (lower(letter) >= 'a' && lower(letter) <= 'z');
}

}  // namespace

bool sameName(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char one, char other) { return lower(one) == lower(other); });
}

std::string lowerName(std::string_view name) {
    std::string result(name);
    std::transform(result.begin(), result.end(), result.begin(), lower);
    return result;
}

bool isCimName(std::string_view text) {
    return !text.empty() && isLetter(text.front()) && std::all_of(text.begin(), text.end(), [](char letter) {
        return isLetter(letter) || isDigit(letter);
    });
}

void requireClassName(const std::string& text) {
    if (!isCimName(text)) {
        throw UsageError("'" + cutTo(text, 40) + "' cannot be the name of a class");
    }
}

bool NameLess::operator()(std::string_view left, std::string_view right) const {
    return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end(),
                                        [](char one, char other) { return lower(one) < lower(other); });
}

}  // namespace tool
