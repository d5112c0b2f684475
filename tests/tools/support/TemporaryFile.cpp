#include "tests/tools/support/TemporaryFile.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <stdexcept>

namespace tool {

TemporaryFile::TemporaryFile(const std::string& content) {
    const auto name = "cimhttp-test-" + std::to_string(std::random_device()());
    path_ = (std::filesystem::temp_directory_path() / name).string();
    std::ofstream file(path_, std::ios::binary);
    if (!(file << content)) {
        throw std::runtime_error("cannot write " + path_);
    }
    std::filesystem::permissions(path_,
                                 std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TemporaryFile::~TemporaryFile() {
    std::remove(path_.c_str());
}

}  // namespace tool
