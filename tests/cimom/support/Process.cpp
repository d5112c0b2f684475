#include "tests/cimom/support/Process.h"

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <stdexcept>

namespace cimom::test {
namespace {

[[noreturn]] void become(const std::vector<std::string>& command) {
    std::vector<char*> arguments;
    for (const std::string& word : command) {
        arguments.push_back(const_cast<char*>(word.c_str()));
    }
    arguments.push_back(nullptr);
    ::execvp(arguments[0], arguments.data());
    ::_exit(127);
}

std::string drainBoth(int out, int err, std::string& errText) {
    std::string outText;
    std::array<pollfd, 2> entries{{{out, POLLIN, 0}, {err, POLLIN, 0}}};
    while (entries[0].fd >= 0 || entries[1].fd >= 0) {
        ::poll(entries.data(), entries.size(), -1);
        for (std::size_t i = 0; i < entries.size(); ++i) {
            char bytes[4096];
            if (entries[i].fd < 0 || entries[i].revents == 0) {
                continue;
            }
            const ssize_t size = ::read(entries[i].fd, bytes, sizeof bytes);
            if (size <= 0) {
                entries[i].fd = -1;
            } else {
                (i == 0 ? outText : errText).append(bytes, static_cast<std::size_t>(size));
            }
        }
    }
    return outText;
}

}  // namespace

BackgroundProcess::BackgroundProcess(const std::vector<std::string>& command) {
    int out[2];
    int err[2];
    if (::pipe(out) != 0 || ::pipe(err) != 0) {
        throw std::runtime_error("cannot make a pipe");
    }
    process_ = ::fork();
    if (process_ == 0) {
        ::dup2(out[1], STDOUT_FILENO);
        ::dup2(err[1], STDERR_FILENO);
        for (const int handle : {out[0], out[1], err[0], err[1]}) {
            ::close(handle);
        }
        become(command);
    }
    ::close(out[1]);
    ::close(err[1]);
    out_ = out[0];
    err_ = err[0];
}

BackgroundProcess::~BackgroundProcess() {
    if (process_ > 0) {
        ::kill(process_, SIGKILL);
        ::waitpid(process_, nullptr, 0);
    }
    ::close(out_);
    ::close(err_);
}

std::string BackgroundProcess::readLine() {
    std::string line;
    for (char c = 0; ::read(out_, &c, 1) == 1 && c != '\n';) {
        line += c;
    }
    return line;
}

void BackgroundProcess::signal(int number) {
    ::kill(process_, number);
}

ProcessResult BackgroundProcess::wait() {
    ProcessResult result;
    result.out = drainBoth(out_, err_, result.err);
    int status = 0;
    ::waitpid(process_, &status, 0);
    process_ = -1;
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return result;
}

ProcessResult runProcess(const std::vector<std::string>& command) {
    return BackgroundProcess(command).wait();
}

}  // namespace cimom::test
