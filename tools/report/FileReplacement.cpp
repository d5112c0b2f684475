#include "tools/report/FileReplacement.h"

#include <fstream>
#include <random>
#include <system_error>

#include "tools/common/Failure.h"
#include "tools/common/SafeText.h"

namespace tool {

namespace {

namespace fs = std::filesystem;

bool writeText(const fs::path& file, const std::string& text) {
    std::ofstream stream(file, std::ios::binary);
    stream << text;
    stream.close();
    return !stream.fail();
}

}  // namespace

FileReplacement::FileReplacement(const std::string& path) : path_(path), file_(path) {
    std::error_code failed;
    if (fs::is_symlink(file_, failed)) {
        file_ = fs::weakly_canonical(file_, failed);
    }
    if (fs::exists(file_, failed) && !fs::is_regular_file(file_, failed)) {
        fail("it is no file");
    }
    const fs::path folder = file_.has_parent_path() ? file_.parent_path() : fs::path(".");
    if (!file_.has_filename() || !fs::is_directory(folder, failed)) {
        fail("there is no such folder");
    }
}

void FileReplacement::write(const std::string& text) const {
    std::error_code failed;
    fs::path unfinished = file_;
    unfinished += "." + std::to_string(std::random_device()());
    const bool isWritten = writeText(unfinished, text);
    if (isWritten) {
        fs::rename(unfinished, file_, failed);
    }
    if (!isWritten || failed) {
        const std::string reason = isWritten ? failed.message() : "the folder takes no file, or is full";
        fs::remove(unfinished, failed);
        fail(reason);
    }
}

void FileReplacement::fail(const std::string& reason) const {
    throw Failure("cannot write " + safeText(path_) + ": " + reason, Failure::Kind::kLocal);
}

}  // namespace tool
