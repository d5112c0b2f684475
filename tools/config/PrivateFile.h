#pragma once

#include <string>

namespace tool {

/// Makes an empty file that nobody else can read, also where one of the name was; what is no file, a pipe for
/// example, stays as it is. On Windows the folder says who can read it. Throws Failure.
void makePrivateFile(const std::string& path);

}  // namespace tool
