#pragma once

#include <string>
#include <string_view>

namespace tool {

/// CIM names (DSP0004) do not differ by the case of their ASCII letters.
bool sameName(std::string_view left, std::string_view right);

/// The name with its ASCII letters in lower case.
std::string lowerName(std::string_view name);

/// True when the text can name a class, property or method: letters, digits and underscores, no digit first.
bool isCimName(std::string_view text);

/// Throws UsageError, naming the text, when it cannot name a class.
void requireClassName(const std::string& text);

/// Orders names without regard to case.
struct NameLess {
    using is_transparent = void;
    bool operator()(std::string_view left, std::string_view right) const;
};

}  // namespace tool
