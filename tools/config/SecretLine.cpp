#include "tools/config/SecretLine.h"

#include "tools/common/Failure.h"

namespace tool {

std::string firstLineOf(const std::string& output, const std::string& program) {
    std::string line = output.substr(0, output.find('\n'));
    if (!line.empty() && line.back() == '\r') {
        line.pop_back();
    }
    if (line.empty()) {
        failCommand(program, "printed no password");
    }
    return line;
}

void failCommand(const std::string& program, const std::string& why) {
    throw Failure("password-command '" + program + "' " + why, Failure::Kind::kLocal);
}

}  // namespace tool
