#include "tools/watch/History.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace tool {

namespace {

constexpr std::size_t kLongest = 16;

constexpr std::array<const char*, 8> kBars = {"▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};

double realOf(const Decimal& number) {
    return std::strtod(number.text().c_str(), nullptr);
}

// Halved, since the difference of two numbers may be too large where its half is not.
const char* barOf(double value, double lowest, double highest) {
    const double share = (value / 2 - lowest / 2) / (highest / 2 - lowest / 2);
    const double place = std::isfinite(share) ? share * static_cast<double>(kBars.size() - 1) : 0;
    return kBars.at(static_cast<std::size_t>(std::lround(std::clamp(place, 0.0, 7.0))));
}

}  // namespace

void History::add(const Decimal& number) {
    numbers_.push_back(number);
    if (numbers_.size() > kLongest) {
        numbers_.pop_front();
    }
}

std::string History::line() const {
    const auto [lowest, highest] = std::minmax_element(numbers_.begin(), numbers_.end());
    if (numbers_.empty() || *lowest == *highest) {
        return {};
    }
    std::string line;
    for (const Decimal& number : numbers_) {
        line += barOf(realOf(number), realOf(*lowest), realOf(*highest));
    }
    return line;
}

}  // namespace tool
