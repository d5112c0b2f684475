#pragma once

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>

namespace tool {

/// A file that is compressed with gzip while it is written. It stands beside its place until it is finished,
/// and then takes that place at once; one that is not finished leaves nothing behind.
class GzipFile {
public:
    /// Throws Failure, as all operations do, when the file cannot be written.
    explicit GzipFile(const std::string& name);
    ~GzipFile();
    GzipFile(const GzipFile&) = delete;
    GzipFile& operator=(const GzipFile&) = delete;

    void write(std::string_view text);
    void finish();

private:
    class Deflater;

    [[noreturn]] void fail(const std::string& why) const;
    void put(std::string_view bytes);

    const std::string name_;
    std::filesystem::path unfinished_;
    std::ofstream stream_;
    std::unique_ptr<Deflater> deflater_;
};

}  // namespace tool
