#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace cimom {

/// The pattern of a LIKE: "%" stands for any characters, "_" for one, "[a-z]" and "[^a-z]" for one of those
/// or none of those; all others for themselves. Bytes are characters.
class LikePattern {
public:
    explicit LikePattern(std::string_view pattern);

    bool matches(std::string_view text) const;

private:
    struct Part {
        bool many = false;     ///< "%".
        bool any = false;      ///< "_".
        bool negated = false;  ///< "[^...]".
        std::string ranges;    ///< First and last characters, in pairs.

        bool fits(char c) const;
    };

    std::size_t addSet(std::string_view pattern, std::size_t at);

    std::vector<Part> parts_;
};

}  // namespace cimom
