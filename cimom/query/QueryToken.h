#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace cimom {

/// A word or sign of a query.
struct QueryToken {
    enum class Kind { Name, Text, Number, Sign, End };

    Kind kind = Kind::End;
    std::string text;    ///< Of a quoted text what stands between the quotes, its escapes resolved.
    std::size_t at = 0;  ///< Number of the first character, from 1.
};

/// The words of a query; the last is of kind End. Throws CimError (invalid query).
std::vector<QueryToken> queryTokens(std::string_view query);

/// Throws CimError (invalid query) that says where.
[[noreturn]] void refuseQuery(std::size_t at, const std::string& why);

}  // namespace cimom
