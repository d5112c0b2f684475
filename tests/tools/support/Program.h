#pragma once

#include <string>
#include <vector>

#include "tests/support/Process.h"

namespace tool {

using Outcome = support::ProcessResult;
using support::linesOf;

/// One run of the built program cimhttp.
class Program {
public:
    explicit Program(std::vector<std::string> arguments);

    /// Sets a variable of the program's environment.
    Program& with(const std::string& variable, const std::string& value);

    /// The program's output is closed after so many bytes were read, as `head` does.
    Program& closingOutputAfter(std::size_t bytes);

    /// Runs it with the arguments, no terminal and nothing to read.
    Outcome run() const;

    /// Runs it on a terminal of its own, 80 columns wide. When `prompt` appears, `typed` is typed. What the
    /// terminal shows is `out`.
    Outcome runOnTerminal(const std::string& prompt = {}, const std::string& typed = {}) const;

private:
    std::vector<std::string> command_;
    support::ProcessOptions options_;
};

/// Shorthand for a run without further ado.
Outcome run(std::vector<std::string> arguments);

}  // namespace tool
