#include "tools/config/GuardedFile.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iterator>

#include "tools/common/UsageError.h"

namespace tool {

std::string readGuarded(const std::string& path, Guard /*guard*/) {
    std::ifstream file(path, std::ios::binary);
    std::string content{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (!file) {
        throw UsageError("'" + path + "' cannot be read: " + std::strerror(errno));
    }
    return content;
}

}  // namespace tool
