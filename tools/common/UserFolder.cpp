#include "tools/common/UserFolder.h"

#include <cstdlib>

namespace tool {

namespace {

std::filesystem::path folderIn(const char* variable) {
    const char* text = std::getenv(variable);
    std::filesystem::path folder(text != nullptr ? text : "");
    return folder.is_absolute() ? folder : std::filesystem::path();
}

}  // namespace

std::filesystem::path userFolder(std::initializer_list<const char*> variables, const char* inHome) {
    for (const char* variable : variables) {
        const std::filesystem::path folder = folderIn(variable);
        if (!folder.empty()) {
            return folder;
        }
    }
    const std::filesystem::path home = folderIn("HOME");
    return home.empty() ? home : home / inHome;
}

}  // namespace tool
