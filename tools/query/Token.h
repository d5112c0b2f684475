#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tool {

/// A piece of a condition, and where it stands.
struct Token {
    enum class Kind { kWord, kQuoted, kOperator, kOpen, kClose, kEnd };

    Kind kind = Kind::kEnd;
    std::string text;          ///< Without quotes and escapes.
    std::size_t position = 0;  ///< Of its first byte.
};

/// The pieces of a condition, the end as the last one. A comparison's value reaches to the next blank or
/// closing parenthesis, or stands in quotes. Throws UsageError that says where a quotation mark is missing.
std::vector<Token> tokensOf(const std::string& condition);

/// Throws UsageError: what is expected in a condition, where, and what stands there.
[[noreturn]] void refuseToken(const Token& token, const std::string& expected);

}  // namespace tool
