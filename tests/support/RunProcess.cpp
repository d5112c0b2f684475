#include <sstream>

#include "tests/support/Process.h"

namespace support {

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream input(text);
    for (std::string line; std::getline(input, line);) {
        lines.push_back(line);
    }
    return lines;
}

ProcessResult runProcess(const std::vector<std::string>& command, const ProcessOptions& options) {
    return Process(command, options).wait();
}

}  // namespace support
