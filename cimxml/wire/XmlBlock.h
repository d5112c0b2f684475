#pragma once

#include <cstddef>

namespace cimxml {

/// What is seen of a piece of XML text without looking at each byte by itself.
struct XmlBlock {
    static constexpr std::size_t size = 64;  ///< Bytes of every block.

    std::size_t nodes = 0;  ///< Start tags and equals signs.
    bool hasSpecial =
        false;  ///< A byte that is no ASCII or a control character, or the start of `<!`, `<?` or `&`.

    /// Looks at the block that starts at `text`, and at one byte beyond it.
    static XmlBlock of(const char* text);

    /// The same on any processor; what `of` does where it knows nothing better.
    static XmlBlock plainlyOf(const char* text);
};

}  // namespace cimxml
