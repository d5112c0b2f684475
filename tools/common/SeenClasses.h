#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tool {

/// The class names of the last answer that listed some, kept from one run to the next: a shell completes
/// them. They are a convenience: what cannot be kept or read is not there, and nobody is told.
class SeenClasses {
public:
    /// Kept where programs keep what they can do without: cimhttp/classes below $XDG_CACHE_HOME, or what
    /// stands in for it.
    SeenClasses();

    explicit SeenClasses(std::filesystem::path file);

    /// What was kept before goes. Two programs at a time do not mix: the file is replaced as a whole.
    void keep(const std::vector<std::string>& names) const noexcept;

    /// In the order of the answer, and nothing but names: a shell gets to see them.
    std::vector<std::string> names() const noexcept;

private:
    std::filesystem::path file_;  // empty: nowhere
};

}  // namespace tool
