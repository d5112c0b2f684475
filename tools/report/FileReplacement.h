#pragma once

#include <filesystem>
#include <string>

namespace tool {

/// A file that is written whole or not at all: the text goes into one beside it, which takes its place.
class FileReplacement {
public:
    /// Throws Failure where no file can be: in a folder that there is not, or in the place of what is no
    /// file. A link stays, and what it leads to is replaced.
    explicit FileReplacement(const std::string& path);

    /// Throws Failure when it cannot be written; then the file is as it was.
    void write(const std::string& text) const;

private:
    [[noreturn]] void fail(const std::string& reason) const;

    std::string path_;  // as a person gave it
    std::filesystem::path file_;
};

}  // namespace tool
