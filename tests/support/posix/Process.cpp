#include "tests/support/Process.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <thread>
#include <utility>

namespace support {

namespace {

[[noreturn]] void fail(const std::string& what, int error) {
    throw std::runtime_error(what + ": " + std::strerror(error));
}

struct Pipe {
    Pipe() {
        if (pipe2(ends.data(), O_CLOEXEC) != 0) {
            fail("pipe", errno);
        }
    }
    ~Pipe() {
        for (const int end : ends) {
            if (end >= 0) {
                ::close(end);
            }
        }
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    int writer() const { return ends[1]; }
    int takeReader() { return std::exchange(ends[0], -1); }

    std::array<int, 2> ends{-1, -1};
};

/// How a process starts: posix_spawn's lists. Not fork, which a process with threads may only follow up with
/// very little before it becomes another program.
class Spawn {
public:
    Spawn() {
        posix_spawn_file_actions_init(&actions_);
        posix_spawnattr_init(&attributes_);
    }
    ~Spawn() {
        posix_spawn_file_actions_destroy(&actions_);
        posix_spawnattr_destroy(&attributes_);
    }
    Spawn(const Spawn&) = delete;
    Spawn& operator=(const Spawn&) = delete;

    void openInput(const std::string& path, int mode) {
        posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, path.c_str(), mode, 0);
    }
    void copy(int from, int to) { posix_spawn_file_actions_adddup2(&actions_, from, to); }
    void inNewSession() { posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSID); }

    pid_t start(const std::vector<std::string>& command, std::vector<std::string> environment) {
        std::vector<std::string> words = command;
        // A test's server stays reachable as long as anybody holds its socket.
        posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1);
        pid_t process = -1;
        const int error = posix_spawnp(&process, words.front().c_str(), &actions_, &attributes_,
                                       pointers(words).data(), pointers(environment).data());
        if (error != 0) {
            fail("cannot start " + command.front(), error);
        }
        return process;
    }

private:
    static std::vector<char*> pointers(std::vector<std::string>& words) {
        std::vector<char*> list;
        for (std::string& word : words) {
            list.push_back(word.data());
        }
        list.push_back(nullptr);
        return list;
    }

    posix_spawn_file_actions_t actions_{};
    posix_spawnattr_t attributes_{};
};

std::vector<std::string> environmentWith(const std::map<std::string, std::optional<std::string>>& changes) {
    std::vector<std::string> environment;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const std::string text = *entry;
        if (changes.count(text.substr(0, text.find('='))) == 0) {
            environment.push_back(text);
        }
    }
    for (const auto& [name, value] : changes) {
        if (value) {
            environment.push_back(name + '=' + *value);
        }
    }
    return environment;
}

std::string contentOf(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

}  // namespace

/// The process of a POSIX system.
class Process::Impl {
public:
    Impl(const std::vector<std::string>& command, const ProcessOptions& options);
    ~Impl();
    Impl(const Impl&) = delete;
    Impl& operator=(const Impl&) = delete;

    std::string readLine();
    bool readUntil(const std::string& text);
    void type(const std::string& text) const;
    void signal(int number) const;
    int id() const { return process_; }
    ProcessResult wait();

private:
    /// One of its outputs, read as far as it came.
    struct Stream {
        int handle = -1;
        std::string text;
    };

    void startOnPipes(const std::vector<std::string>& command, const ProcessOptions& options);
    void startOnTerminal(const std::vector<std::string>& command, const ProcessOptions& options);
    bool readMore();
    static void readSome(Stream& stream);
    static void close(Stream& stream);
    std::chrono::milliseconds timeLeft() const;
    int waitForEnd();
    void giveUp();

    std::chrono::milliseconds longestRun_;
    std::chrono::steady_clock::time_point end_;
    std::size_t closeOutputAfter_;
    std::size_t consumed_ = 0;
    pid_t process_ = -1;
    bool killed_ = false;
    Stream out_;
    Stream err_;
};

Process::Impl::Impl(const std::vector<std::string>& command, const ProcessOptions& options)
    : longestRun_(options.longestRun),
      end_(std::chrono::steady_clock::now() + longestRun_),
      closeOutputAfter_(options.closeOutputAfter) {
    options.terminal ? startOnTerminal(command, options) : startOnPipes(command, options);
}

Process::Impl::~Impl() {
    if (process_ > 0) {
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
    }
    close(out_);
    close(err_);
}

void Process::Impl::startOnPipes(const std::vector<std::string>& command, const ProcessOptions& options) {
    Pipe out;
    Pipe err;
    Spawn spawn;
    spawn.openInput("/dev/null", O_RDONLY);
    spawn.copy(out.writer(), STDOUT_FILENO);
    spawn.copy(err.writer(), STDERR_FILENO);
    process_ = spawn.start(command, environmentWith(options.variables));
    out_.handle = out.takeReader();
    err_.handle = err.takeReader();
}

void Process::Impl::startOnTerminal(const std::vector<std::string>& command, const ProcessOptions& options) {
    out_.handle = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    std::array<char, 64> name{};
    if (out_.handle < 0 || grantpt(out_.handle) != 0 || unlockpt(out_.handle) != 0 ||
        ptsname_r(out_.handle, name.data(), name.size()) != 0) {
        fail("cannot open a terminal", errno);
    }
    winsize size{};
    size.ws_col = 80;
    size.ws_row = 24;
    ioctl(out_.handle, TIOCSWINSZ, &size);
    Spawn spawn;
    spawn.inNewSession();  // the terminal that it opens first is then its own
    spawn.openInput(name.data(), O_RDWR);
    spawn.copy(STDIN_FILENO, STDOUT_FILENO);
    spawn.copy(STDIN_FILENO, STDERR_FILENO);
    process_ = spawn.start(command, environmentWith(options.variables));
}

std::string Process::Impl::readLine() {
    std::size_t end = std::string::npos;
    while ((end = out_.text.find('\n', consumed_)) == std::string::npos && readMore()) {
    }
    const std::string line = out_.text.substr(consumed_, end - consumed_);
    consumed_ = end == std::string::npos ? out_.text.size() : end + 1;
    return line;
}

bool Process::Impl::readUntil(const std::string& text) {
    while (out_.text.find(text) == std::string::npos) {
        if (!readMore()) {
            return false;
        }
    }
    return true;
}

void Process::Impl::type(const std::string& text) const {
    [[maybe_unused]] const auto written = write(out_.handle, text.data(), text.size());
}

void Process::Impl::signal(int number) const {
    kill(process_, number);
}

ProcessResult Process::Impl::wait() {
    while (readMore()) {
    }
    const int status = waitForEnd();
    process_ = -1;
    ProcessResult result;
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    result.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    result.out = out_.text.substr(consumed_);
    result.err = err_.text;
    return result;
}

/// Its status as waitpid gives it. A program may go on after it has closed its outputs.
int Process::Impl::waitForEnd() {
    int status = 0;
    while (waitpid(process_, &status, killed_ ? 0 : WNOHANG) == 0) {
        if (timeLeft().count() == 0) {
            giveUp();
        } else {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }
    return status;
}

/// Reads what comes next on either stream; false when both are closed.
bool Process::Impl::readMore() {
    if (out_.handle < 0 && err_.handle < 0) {
        return false;
    }
    std::array<pollfd, 2> waits = {pollfd{out_.handle, POLLIN, 0}, pollfd{err_.handle, POLLIN, 0}};
    if (poll(waits.data(), waits.size(), static_cast<int>(timeLeft().count())) == 0) {
        giveUp();
        return false;
    }
    if (waits[0].revents != 0) {
        readSome(out_);
    }
    if (waits[1].revents != 0) {
        readSome(err_);
    }
    if (out_.text.size() >= closeOutputAfter_) {
        close(out_);
    }
    return true;
}

void Process::Impl::readSome(Stream& stream) {
    std::array<char, 65536> buffer{};
    const ssize_t count = read(stream.handle, buffer.data(), buffer.size());
    if (count > 0) {
        stream.text.append(buffer.data(), static_cast<std::size_t>(count));
    } else if (count == 0 || errno != EINTR) {
        close(stream);
    }
}

void Process::Impl::close(Stream& stream) {
    if (stream.handle >= 0) {
        ::close(stream.handle);
        stream.handle = -1;
    }
}

std::chrono::milliseconds Process::Impl::timeLeft() const {
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(end_ - std::chrono::steady_clock::now());
    return std::max(left, std::chrono::milliseconds::zero());
}

void Process::Impl::giveUp() {
    const std::string folder = "/proc/" + std::to_string(process_) + '/';
    err_.text += "[killed after " + std::to_string(longestRun_.count()) + " ms, in " +
                 contentOf(folder + "wchan") + ", system call " + contentOf(folder + "syscall") + ", " +
                 contentOf(folder + "stat") + "]\n";
    close(out_);
    close(err_);
    kill(process_, SIGKILL);
    killed_ = true;
}

Process::Process(const std::vector<std::string>& command, const ProcessOptions& options)
    : impl_(std::make_unique<Impl>(command, options)) {}

Process::~Process() = default;

std::string Process::readLine() {
    return impl_->readLine();
}

bool Process::readUntil(const std::string& text) {
    return impl_->readUntil(text);
}

void Process::type(const std::string& text) const {
    impl_->type(text);
}

void Process::signal(int number) const {
    impl_->signal(number);
}

int Process::id() const {
    return impl_->id();
}

ProcessResult Process::wait() {
    return impl_->wait();
}

}  // namespace support
