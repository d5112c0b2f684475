#include "tests/tools/support/TemporaryFile.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace tool {

TemporaryFile::TemporaryFile(const std::string& content) {
    const char* folder = std::getenv("TMPDIR");
    path_ = std::string(folder == nullptr ? "/tmp" : folder) + "/cimhttp-test-XXXXXX";
    const int file = mkstemp(path_.data());
    if (file < 0) {
        throw std::runtime_error("mkstemp");
    }
    close(file);
    std::ofstream(path_, std::ios::binary) << content;
}

TemporaryFile::~TemporaryFile() {
    std::remove(path_.c_str());
}

}  // namespace tool
