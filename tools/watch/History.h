#pragma once

#include <cstddef>
#include <deque>
#include <string>

#include "tools/common/Decimal.h"

namespace tool {

/// The last values of a number, oldest first.
class History {
public:
    void add(const Decimal& number);

    /// The values as a line of small bars between the least and the greatest of them, `▁▂▅█`; empty as long
    /// as they are all the same.
    std::string line() const;

private:
    std::deque<Decimal> numbers_;
};

}  // namespace tool
