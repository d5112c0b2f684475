#include "tools/config/PrivateFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "tools/common/Failure.h"

namespace tool {

void makePrivateFile(const std::string& path) {
    constexpr mode_t kOwn = S_IRUSR | S_IWUSR;
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kOwn);
    struct stat state {};
    const bool isMade =
        file >= 0 && fstat(file, &state) == 0 && (!S_ISREG(state.st_mode) || fchmod(file, kOwn) == 0);
    const int error = errno;
    if (file >= 0) {
        close(file);
    }
    if (!isMade) {
        throw Failure("'" + path + "' cannot be written: " + std::strerror(error), Failure::Kind::kLocal);
    }
}

}  // namespace tool
