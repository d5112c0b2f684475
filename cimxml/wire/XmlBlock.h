#pragma once

#include <cstddef>

namespace cimxml {

/// What is seen of a piece of XML text without looking at each byte by itself.
struct XmlBlock {
    static constexpr std::size_t size = 64;  ///< Bytes of every block.

    /// Start tags and equals signs.
    std::size_t nodes = 0;
    /// It has to be looked at byte by byte: there is a reference, a control character, a byte that is no
    /// ASCII, or a `<` before what is no tag, `<!` and `<?` among others.
    bool hasSpecial = false;

    /// Looks at the block that starts at `text`, and at one byte beyond it.
    static XmlBlock of(const char* text);

    /// The same on any processor; what `of` does where it knows nothing better.
    static XmlBlock plainlyOf(const char* text);
};

}  // namespace cimxml
