#pragma once

#include <string>

namespace tool {

/// The first line of what a program printed, without its end. Throws Failure when it is empty.
std::string firstLineOf(const std::string& output, const std::string& program);

/// Throws Failure for a program that gave no password.
[[noreturn]] void failCommand(const std::string& program, const std::string& why);

}  // namespace tool
