#pragma once

#include <optional>
#include <string>
#include <vector>

#include "vskcore/TCIMValue.h"

namespace tool {

/// What the values of a property mean: its qualifiers ValueMap and Values (DSP0004).
class ValueMap {
public:
    /// One entry of ValueMap and the text that Values has for it.
    struct Entry {
        std::string value;  ///< A value, a range such as "3..7", "..2" or "8..", or ".." for all others.
        std::string text;
    };

    /// Without `values` the texts stand for 0, 1, 2 and so on. A text or value too many is left out.
    ValueMap(std::vector<std::string> values, const std::vector<std::string>& texts);

    const std::vector<Entry>& entries() const { return entries_; }

    /// The text of a scalar value; none when the map has none for it.
    std::optional<std::string> textOf(const NQELVSK20::TCIMValue& scalar) const;

    /// The value that a text stands for, case aside; none when it stands for a range or for nothing.
    std::optional<std::string> valueOf(const std::string& text) const;

    /// All texts, for a message.
    std::string texts() const;

private:
    std::vector<Entry> entries_;
};

}  // namespace tool
