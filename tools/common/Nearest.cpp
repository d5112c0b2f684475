#include "tools/common/Nearest.h"

#include <algorithm>
#include <cstddef>
#include <limits>

#include "tools/common/Names.h"

namespace tool {

namespace {

using Distances = std::vector<std::size_t>;

// The number of mistakes between two words, neighbours that changed places being one.
std::size_t mistakesBetween(const std::string& one, const std::string& other) {
    std::vector<Distances> rows(one.size() + 1, Distances(other.size() + 1));
    for (std::size_t i = 0; i <= one.size(); ++i) {
        for (std::size_t j = 0; j <= other.size(); ++j) {
            if (i == 0 || j == 0) {
                rows[i][j] = i + j;
                continue;
            }
            const std::size_t wrong = one[i - 1] == other[j - 1] ? 0 : 1;
            rows[i][j] = std::min({rows[i - 1][j] + 1, rows[i][j - 1] + 1, rows[i - 1][j - 1] + wrong});
            const bool areSwapped =
                i > 1 && j > 1 && one[i - 1] == other[j - 2] && one[i - 2] == other[j - 1];
            if (areSwapped) {
                rows[i][j] = std::min(rows[i][j], rows[i - 2][j - 2] + 1);
            }
        }
    }
    return rows[one.size()][other.size()];
}

}  // namespace

std::optional<std::string> nearest(const std::string& word, const std::vector<std::string>& candidates) {
    constexpr std::size_t kMostMistakes = 2;
    constexpr std::size_t kShort = 4;  // a letter more or less makes another word of these
    const std::size_t most = word.size() < kShort ? 1 : kMostMistakes;
    std::size_t fewest = std::numeric_limits<std::size_t>::max();
    std::optional<std::string> best;
    for (const std::string& candidate : candidates) {
        const bool isFarOff = candidate.size() > word.size() + most || word.size() > candidate.size() + most;
        const std::size_t mistakes =
            isFarOff ? fewest : mistakesBetween(lowerName(word), lowerName(candidate));
        if (mistakes < fewest && mistakes <= most) {
            fewest = mistakes;
            best = candidate;
        }
    }
    return best;
}

std::string suggestion(const std::string& word, const std::vector<std::string>& candidates) {
    const auto found = nearest(word, candidates);
    return found ? "; did you mean " + *found + "?" : "";
}

}  // namespace tool
