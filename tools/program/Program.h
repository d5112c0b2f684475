#pragma once

namespace tool {

/// The program from command line to exit status.
int runProgram(int argc, const char* const* argv);

}  // namespace tool
