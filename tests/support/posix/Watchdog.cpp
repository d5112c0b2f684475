#include "tests/support/Watchdog.h"

#include <dirent.h>
#include <execinfo.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <string>

namespace support {

namespace {

// Shortly before the time limit that every test has in CTest.
constexpr unsigned kPatienceSeconds = 100;

void say(const std::string& text) {
    [[maybe_unused]] const auto written = write(STDERR_FILENO, text.data(), text.size());
}

void sayFile(const std::string& path) {
    std::array<char, 512> content{};
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const ssize_t size = file < 0 ? 0 : read(file, content.data(), content.size());
    close(file);
    say(path + ": " + std::string(content.data(), static_cast<std::size_t>(size > 0 ? size : 0)) + '\n');
}

void sayThreads() {
    DIR* threads = opendir("/proc/self/task");
    while (const dirent* thread = threads == nullptr ? nullptr : readdir(threads)) {
        if (thread->d_name[0] != '.') {
            const std::string folder = "/proc/self/task/" + std::string(thread->d_name) + '/';
            sayFile(folder + "wchan");
            sayFile(folder + "syscall");
        }
    }
    closedir(threads);
}

// Does what a signal handler should not, in a process that hangs anyway and will be killed. The stack goes
// first, since it needs no memory.
extern "C" void reportHang(int /*signal*/) {
    std::array<void*, 64> frames{};
    backtrace_symbols_fd(frames.data(), backtrace(frames.data(), frames.size()), STDERR_FILENO);
    sayThreads();
}

/// Gives each test its own time.
class Watchdog : public ::testing::EmptyTestEventListener {
public:
    Watchdog() {
        std::array<void*, 1> frame{};
        backtrace(frame.data(), frame.size());  // loads what it needs now
        std::signal(SIGALRM, reportHang);
    }
    void OnTestStart(const ::testing::TestInfo& /*test*/) override { alarm(kPatienceSeconds); }
    void OnTestEnd(const ::testing::TestInfo& /*test*/) override { alarm(0); }
};

}  // namespace

void startWatchdog() {
    ::testing::UnitTest::GetInstance()->listeners().Append(new Watchdog);  // GoogleTest owns it
}

}  // namespace support
