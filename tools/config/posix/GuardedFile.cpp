#include "tools/config/GuardedFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>

#include "tools/common/UsageError.h"

namespace tool {

namespace {

constexpr std::size_t kMostBytes = 1 << 20;

[[noreturn]] void failToRead(const std::string& path) {
    throw UsageError("'" + path + "' cannot be read: " + std::strerror(errno));
}

/// A file as long as it is read: what was looked at is what is read, even if another gets its name meanwhile.
class GuardedFile {
public:
    explicit GuardedFile(const std::string& path)
        : path_(path), file_(open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
        if (file_ < 0) {
            failToRead(path_);
        }
    }
    ~GuardedFile() { close(file_); }
    GuardedFile(const GuardedFile&) = delete;
    GuardedFile& operator=(const GuardedFile&) = delete;

    void require(Guard guard) const {
        struct stat state {};
        if (fstat(file_, &state) != 0) {
            failToRead(path_);
        }
        if (state.st_uid != geteuid() && state.st_uid != 0) {
            throw UsageError("'" + path_ + "' belongs to another user");
        }
        if ((state.st_mode & (S_IWGRP | S_IWOTH)) != 0) {
            throw UsageError("'" + path_ + "' can be written by others; chmod go-w makes it yours alone");
        }
        if (guard == Guard::kAgainstReading && (state.st_mode & (S_IRGRP | S_IROTH)) != 0) {
            throw UsageError("'" + path_ + "' can be read by others; chmod 600 makes it yours alone");
        }
    }

    std::string read() const {
        std::string content;
        std::array<char, 4096> piece{};
        for (;;) {
            const ssize_t size = ::read(file_, piece.data(), piece.size());
            if (size < 0 && errno != EINTR) {
                failToRead(path_);
            }
            if (size == 0) {
                return content;
            }
            content.append(piece.data(), size > 0 ? static_cast<std::size_t>(size) : 0);
            if (content.size() > kMostBytes) {
                throw UsageError("'" + path_ + "' is too long");
            }
        }
    }

private:
    const std::string& path_;
    int file_;
};

}  // namespace

std::string readGuarded(const std::string& path, Guard guard) {
    const GuardedFile file(path);
    file.require(guard);
    return file.read();
}

}  // namespace tool
