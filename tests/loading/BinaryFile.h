#pragma once

#include <string>
#include <utility>
#include <vector>

namespace support {

/// A built program or library, as its file tells about it.
class BinaryFile {
public:
    explicit BinaryFile(std::string path) : path_(std::move(path)) {}

    /// The names that it exports, as the linker spells them.
    std::vector<std::string> exports() const;

    /// The names of the libraries that it needs, as the loader will look for them.
    std::vector<std::string> imports() const;

private:
    std::string path_;
};

}  // namespace support
