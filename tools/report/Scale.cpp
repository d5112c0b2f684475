#include "tools/report/Scale.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace tool {

namespace {

constexpr double kLength = 100;
constexpr double kRoomBeyond = 0.12;  // of what lies between the outermost numbers

using Limits = std::array<std::optional<double>, Reading::kThresholds>;

double numberFrom(const Decimal& decimal) {
    return std::strtod(decimal.text().c_str(), nullptr);
}

bool isUpperLimit(std::size_t threshold) {
    return threshold % 2 == 1;
}

Limits limitsOf(const Reading& reading) {
    Limits limits;
    for (std::size_t i = 0; i < limits.size(); ++i) {
        if (const auto& threshold = reading.threshold(static_cast<Reading::Threshold>(i))) {
            limits.at(i) = numberFrom(*threshold);
        }
    }
    return limits;
}

bool hasLimit(const Limits& limits, bool isUpper) {
    for (std::size_t i = isUpper ? 1 : 0; i < limits.size(); i += 2) {
        if (limits.at(i)) {
            return true;
        }
    }
    return false;
}

/// What the bar shows, from left to right.
struct Span {
    double from;
    double to;
};

// Zero belongs to it where only one side has thresholds: a fan's speed says little without it, but the small
// tolerance of a voltage could not be seen beside it.
Span spanOf(double reading, const Limits& limits) {
    Span span{reading, reading};
    const auto include = [&](double number) {
        span.from = std::min(span.from, number);
        span.to = std::max(span.to, number);
    };
    for (const auto& limit : limits) {
        include(limit.value_or(reading));
    }
    if (!hasLimit(limits, false) || !hasLimit(limits, true)) {
        include(0);
    }
    const double room = (span.to - span.from) * kRoomBeyond;
    span.from -= span.from == 0 ? 0 : room;
    span.to += span.to == 0 ? 0 : room;
    return span;
}

}  // namespace

std::optional<Scale> Scale::of(const Reading& reading) {
    const Limits limits = limitsOf(reading);
    const double value = numberFrom(reading.value());
    const Span span = spanOf(value, limits);
    const double length = span.to - span.from;
    if ((!hasLimit(limits, false) && !hasLimit(limits, true)) || !std::isfinite(length) || length <= 0) {
        return std::nullopt;
    }
    const auto placeOf = [&](double number) { return (number - span.from) / length * kLength; };
    Scale scale;
    scale.reading_ = placeOf(value);
    for (std::size_t i = 0; i < limits.size(); ++i) {
        if (limits.at(i)) {
            const double place = placeOf(*limits.at(i));
            const bool isCritical = i >= Reading::kLowerCritical;
            scale.zones_.push_back(isUpperLimit(i) ? Zone{place, kLength, isCritical}
                                                   : Zone{0, place, isCritical});
        }
    }
    return scale;
}

}  // namespace tool
