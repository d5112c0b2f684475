#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tool {

/// What a mistyped word was probably meant to be: the candidate with the fewest letters wrong, missing, too
/// many or in the place of their neighbours, when these are two at most. Case does not count.
std::optional<std::string> nearest(const std::string& word, const std::vector<std::string>& candidates);

/// "; did you mean X?", or nothing when there is none.
std::string suggestion(const std::string& word, const std::vector<std::string>& candidates);

}  // namespace tool
