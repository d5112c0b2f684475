#include "tests/loading/BinaryFile.h"

#include <sstream>
#include <stdexcept>

#include "tests/support/Process.h"

namespace support {

namespace {

std::vector<std::string> linesFrom(const std::vector<std::string>& command) {
    const ProcessResult result = runProcess(command);
    if (result.status != 0) {
        throw std::runtime_error(command.front() + ": " + result.err);
    }
    return linesOf(result.out);
}

}  // namespace

std::vector<std::string> BinaryFile::exports() const {
    std::vector<std::string> names;
    for (const std::string& line : linesFrom({"nm", "-D", "--defined-only", path_})) {
        names.push_back(line.substr(line.rfind(' ') + 1));
    }
    return names;
}

std::vector<std::string> BinaryFile::imports() const {
    std::vector<std::string> names;
    for (const std::string& line : linesFrom({"objdump", "-p", path_})) {
        std::istringstream words(line);
        std::string name;
        std::string value;
        if (words >> name >> value && name == "NEEDED") {
            names.push_back(value);
        }
    }
    return names;
}

}  // namespace support
