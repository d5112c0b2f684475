#pragma once

#include <cstddef>
#include <string_view>

namespace cimxml {

/// Tells which places of an XML text lie in the text of a value: of a VALUE or KEYVALUE element (DSP0201).
class ValueTexts {
public:
    explicit ValueTexts(std::string_view text) : text_(text) {}

    /// Whether the byte at `place`, which is not in a CDATA section, does. Places have to be asked for in
    /// ascending order; each byte of the text is then looked at a few times at most.
    bool contain(std::size_t place);

private:
    bool reachesTo(std::size_t place) const;
    std::size_t begin(std::size_t place) const;
    std::size_t tagEnd(std::size_t tag) const;

    std::string_view text_;
    std::size_t known_ = std::string_view::npos;  ///< A place known to lie in one.
};

/// The name of the element, a property mostly, that the value around `place` belongs to: what the NAME
/// attribute before it says. Empty when there is none.
std::string_view nameOfValue(std::string_view text, std::size_t place);

}  // namespace cimxml
