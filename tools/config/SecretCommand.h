#pragma once

#include <string>
#include <vector>

namespace tool {

/// The first line that a program prints, without its end: a password store's way to give a password. It is
/// found along PATH and started without a shell; what it asks and complains of goes to the terminal. Throws
/// Failure, which names the program only, when it cannot be run, fails, or prints no line with something.
std::string firstLineOf(const std::vector<std::string>& command);

}  // namespace tool
