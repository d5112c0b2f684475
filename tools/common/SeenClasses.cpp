#include "tools/common/SeenClasses.h"

#include <exception>
#include <fstream>
#include <random>
#include <system_error>
#include <utility>

#include "tools/common/Names.h"
#include "tools/common/UserFolder.h"

namespace tool {

namespace {

namespace fs = std::filesystem;

bool writeLines(const fs::path& file, const std::vector<std::string>& names) {
    std::ofstream stream(file, std::ios::binary);
    for (const std::string& name : names) {
        if (isCimName(name)) {
            stream << name << '\n';
        }
    }
    stream.close();
    return !stream.fail();
}

}  // namespace

SeenClasses::SeenClasses() {
    const fs::path folder = userFolder({"XDG_CACHE_HOME", "LOCALAPPDATA"}, ".cache");
    if (!folder.empty()) {
        file_ = folder / "cimhttp" / "classes";
    }
}

SeenClasses::SeenClasses(fs::path file) : file_(std::move(file)) {}

void SeenClasses::keep(const std::vector<std::string>& names) const noexcept {
    try {
        if (file_.empty()) {
            return;
        }
        std::error_code failed;
        fs::create_directories(file_.parent_path(), failed);
        fs::path unfinished = file_;
        unfinished += "." + std::to_string(std::random_device()());
        if (writeLines(unfinished, names)) {
            fs::rename(unfinished, file_, failed);
        }
        fs::remove(unfinished, failed);
    } catch (const std::exception&) {
        // Then they are not completed.
    }
}

std::vector<std::string> SeenClasses::names() const noexcept {
    std::vector<std::string> names;
    try {
        std::ifstream stream(file_, std::ios::binary);
        for (std::string line; std::getline(stream, line);) {
            if (isCimName(line)) {
                names.push_back(line);
            }
        }
    } catch (const std::exception&) {
        names.clear();
    }
    return names;
}

}  // namespace tool
