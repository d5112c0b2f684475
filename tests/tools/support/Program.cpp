#include "tests/tools/support/Program.h"

#include <utility>

namespace tool {

Program::Program(std::vector<std::string> arguments) : command_(std::move(arguments)) {
    command_.insert(command_.begin(), CIMHTTP_PROGRAM);
    options_.variables["CIMHTTP_PASSWORD"] = std::nullopt;
    // Below a file nothing can be kept: neither for another test nor in the place of what the person keeps
    // there.
    options_.variables["XDG_CACHE_HOME"] = CIMHTTP_PROGRAM;
}

Program& Program::with(const std::string& variable, const std::string& value) {
    options_.variables[variable] = value;
    return *this;
}

Program& Program::closingOutputAfter(std::size_t bytes) {
    options_.closeOutputAfter = bytes;
    return *this;
}

Outcome Program::run() const {
    return support::runProcess(command_, options_);
}

Outcome Program::runOnTerminal(const std::string& prompt, const std::string& typed) const {
    support::ProcessOptions options = options_;
    options.terminal = true;
    support::Process process(command_, options);
    if (!prompt.empty() && process.readUntil(prompt)) {
        process.type(typed);
    }
    return process.wait();
}

Outcome run(std::vector<std::string> arguments) {
    return Program(std::move(arguments)).run();
}

}  // namespace tool
