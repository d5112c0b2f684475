#pragma once

#include <optional>
#include <string>

namespace tool {

/// A CIM datetime (DSP0004) as a number, so that two can be told apart and ordered whatever their zones.
struct Moment {
    bool isInterval = false;
    long long microseconds = 0;  ///< Since the year 0, in UTC; of an interval its length.

    /// What a text of 25 characters says; what asterisks leave open counts as the earliest. None for text
    /// that is no datetime.
    static std::optional<Moment> of(const std::string& text);
};

/// A point in time for a person, `2024-09-11 14:02:41`, as the clock there showed it; other text as it is.
std::string timeText(const std::string& text);

}  // namespace tool
