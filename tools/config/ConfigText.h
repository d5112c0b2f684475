#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tool {

/// What a key of a configuration file was given, and the line of the key, from 1.
struct ConfigValue {
    std::variant<std::string, std::size_t, std::vector<std::string>> content;
    std::size_t line = 0;
};

/// A part of a configuration file below its [NAME].
struct ConfigSection {
    std::string name;
    std::size_t line = 0;
    std::map<std::string, ConfigValue> values;  ///< by key
};

/// Reads what machines are described with of TOML: sections, and in them keys with a text in double or single
/// quotes, a whole number, or a list of texts, which may go over several lines; comments. In order of the
/// file. Throws ConfigFault, also for a name that stands there twice.
std::vector<ConfigSection> parseConfig(std::string_view text);

}  // namespace tool
