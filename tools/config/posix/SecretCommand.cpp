#include "tools/config/SecretCommand.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>

#include "tools/config/SecretLine.h"

extern char** environ;

namespace tool {

namespace {

constexpr std::size_t kMostKept = 64 * 1024;

/// A program whose standard output is read here.
class PrintingProgram {
public:
    explicit PrintingProgram(const std::vector<std::string>& command) : name_(command.front()) {
        std::array<int, 2> ends{};
        if (pipe(ends.data()) != 0) {
            failCommand(name_, std::string("cannot be run: ") + std::strerror(errno));
        }
        output_ = ends[0];
        fcntl(output_, F_SETFD, FD_CLOEXEC);
        fcntl(ends[1], F_SETFD, FD_CLOEXEC);
        const int error = start(command, ends[1]);
        close(ends[1]);
        if (error != 0) {
            close(output_);
            failCommand(name_, std::string("cannot be run: ") + std::strerror(error));
        }
    }
    ~PrintingProgram() { close(output_); }
    PrintingProgram(const PrintingProgram&) = delete;
    PrintingProgram& operator=(const PrintingProgram&) = delete;

    std::string readAll() const {
        std::string text;
        std::array<char, 4096> piece{};
        for (;;) {
            const ssize_t size = read(output_, piece.data(), piece.size());
            if (size > 0) {
                // The rest is read as well, so that the program can end as it means to.
                text.append(piece.data(), text.size() < kMostKept ? static_cast<std::size_t>(size) : 0);
            } else if (size == 0 || errno != EINTR) {
                return text;
            }
        }
    }

    void requireSuccess() const {
        int status = 0;
        while (waitpid(id_, &status, 0) < 0 && errno == EINTR) {
        }
        if (WIFSIGNALED(status)) {
            failCommand(name_, "was ended by signal " + std::to_string(WTERMSIG(status)));
        }
        if (WEXITSTATUS(status) != 0) {
            failCommand(name_, "ended with the status " + std::to_string(WEXITSTATUS(status)));
        }
    }

private:
    int start(const std::vector<std::string>& command, int output) {
        std::vector<std::string> words = command;
        std::vector<char*> arguments;
        arguments.reserve(words.size() + 1);
        for (std::string& word : words) {
            arguments.push_back(word.data());
        }
        arguments.push_back(nullptr);
        posix_spawn_file_actions_t actions{};
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
        posix_spawnattr_t attributes{};
        posix_spawnattr_init(&attributes);
        // This program ignores a closed pipe, which another may rely on to be ended by.
        sigset_t usual{};
        sigemptyset(&usual);
        sigaddset(&usual, SIGPIPE);
        posix_spawnattr_setsigdefault(&attributes, &usual);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
        const int error =
            posix_spawnp(&id_, arguments.front(), &actions, &attributes, arguments.data(), environ);
        posix_spawnattr_destroy(&attributes);
        posix_spawn_file_actions_destroy(&actions);
        return error;
    }

    const std::string& name_;
    int output_ = -1;
    pid_t id_ = 0;
};

}  // namespace

std::string firstLineOf(const std::vector<std::string>& command) {
    const PrintingProgram program(command);
    const std::string output = program.readAll();
    program.requireSuccess();
    return firstLineOf(output, command.front());
}

}  // namespace tool
