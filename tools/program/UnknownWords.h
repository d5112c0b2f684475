#pragma once

#include <string>
#include <vector>

namespace tool {

/// Words of a command line that nobody expected, and what might have been meant.
struct UnknownWords {
    std::vector<std::string> words;
    std::vector<std::string> options;   ///< Those that there are, with their dashes.
    std::vector<std::string> commands;  ///< All.
    std::string command;                ///< The one that was recognised; empty: none.

    /// One line about them, without values: one may be a password.
    std::string complaint() const;

private:
    std::vector<std::string> optionNames() const;
};

}  // namespace tool
