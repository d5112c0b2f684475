#pragma once

#include <map>
#include <set>
#include <string>

namespace support {

/// What a program's --help lists.
struct HelpText {
    /// Reads it as CLI11 lays it out: options and subcommands indented by two, what is said of them by more.
    explicit HelpText(const std::string& text);

    std::set<std::string> options;  ///< -v and --verbose alike.
    std::set<std::string> commands;
};

/// The options of a program, under its name "", and of each of its commands, as they say themselves. What the
/// program has, its commands are not listed with again. Throws std::runtime_error when it lists nothing.
std::map<std::string, std::set<std::string>> optionsOf(const std::string& program);

}  // namespace support
