#include "tools/config/PrivateFile.h"

#include <cerrno>
#include <cstring>
#include <fstream>

#include "tools/common/Failure.h"

namespace tool {

void makePrivateFile(const std::string& path) {
    const std::ofstream file(path, std::ios::binary | std::ios::trunc);
    if (!file) {
        throw Failure("'" + path + "' cannot be written: " + std::strerror(errno), Failure::Kind::kLocal);
    }
}

}  // namespace tool
