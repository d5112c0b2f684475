#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

namespace tool {

/// Something in a configuration file that cannot be meant, and its line. The text shows nothing of values:
/// one may be a password that somebody wrote where none belongs.
class ConfigFault : public std::runtime_error {
public:
    ConfigFault(std::size_t line, const std::string& text) : std::runtime_error(text), line_(line) {}

    /// Counted from 1.
    std::size_t line() const { return line_; }

private:
    std::size_t line_;
};

}  // namespace tool
