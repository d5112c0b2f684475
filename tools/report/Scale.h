#pragma once

#include <optional>
#include <vector>

#include "tools/health/Reading.h"

namespace tool {

/// Where a sensor's numbers stand on a bar from 0 to 100.
class Scale {
public:
    /// The part of the bar that lies beyond a threshold.
    struct Zone {
        double from;
        double to;
        bool isCritical;  ///< Or even fatal.
    };

    /// None for a sensor without a threshold, whose reading can be held against nothing, and for numbers that
    /// no bar has room for.
    static std::optional<Scale> of(const Reading& reading);

    double reading() const { return reading_; }

    /// The milder ones first, since the others lie on them.
    const std::vector<Zone>& zones() const { return zones_; }

private:
    double reading_ = 0;
    std::vector<Zone> zones_;
};

}  // namespace tool
