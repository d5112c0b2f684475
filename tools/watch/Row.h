#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tools/common/Decimal.h"

namespace tool {

/// A value of a row, safe for a terminal.
struct Cell {
    std::string name;
    std::string text;
    std::optional<Decimal> number;  ///< What the value is, if it is one number.
};

/// One thing of a watched answer, with what makes it the same thing in the next round.
struct Row {
    std::string key;
    std::string label;  ///< For a person, safe for a terminal.
    std::vector<Cell> cells;
};

using Rows = std::vector<Row>;

}  // namespace tool
