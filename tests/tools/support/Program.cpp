#include "tests/tools/support/Program.h"

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <sstream>
#include <stdexcept>

namespace tool {

namespace {

struct Pipe {
    Pipe() {
        if (pipe2(ends.data(), O_CLOEXEC) != 0) {
            throw std::runtime_error("pipe");
        }
    }
    ~Pipe() {
        closeReader();
        closeWriter();
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    int reader() const { return ends[0]; }
    int writer() const { return ends[1]; }
    void closeReader() { closeEnd(ends[0]); }
    void closeWriter() { closeEnd(ends[1]); }

    static void closeEnd(int& end) {
        if (end >= 0) {
            close(end);
            end = -1;
        }
    }

    std::array<int, 2> ends{};
};

// Reads what is there; false at the end.
bool readSome(int from, std::string& text) {
    std::array<char, 65536> buffer{};
    const ssize_t count = read(from, buffer.data(), buffer.size());
    if (count <= 0) {
        return count < 0 && errno == EINTR;
    }
    text.append(buffer.data(), static_cast<std::size_t>(count));
    return true;
}

void readBoth(Pipe& out, Pipe& err, std::size_t outputLimit, Outcome& outcome) {
    bool outOpen = true;
    bool errOpen = true;
    while (outOpen || errOpen) {
        std::array<pollfd, 2> waits = {pollfd{outOpen ? out.reader() : -1, POLLIN, 0},
                                       pollfd{errOpen ? err.reader() : -1, POLLIN, 0}};
        poll(waits.data(), waits.size(), -1);
        if (waits[0].revents != 0) {
            outOpen = readSome(out.reader(), outcome.out) && outcome.out.size() < outputLimit;
            if (!outOpen) {
                out.closeReader();
            }
        }
        if (waits[1].revents != 0) {
            errOpen = readSome(err.reader(), outcome.err);
        }
    }
}

void waitFor(pid_t child, Outcome& outcome) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    outcome.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
}

}  // namespace

Program& Program::with(const std::string& variable, const std::string& value) {
    variables_[variable] = value;
    return *this;
}

Program& Program::closingOutputAfter(std::size_t bytes) {
    outputLimit_ = bytes;
    return *this;
}

void Program::execute() const {
    unsetenv("CIMHTTP_PASSWORD");
    for (const auto& [name, value] : variables_) {
        setenv(name.c_str(), value.c_str(), 1);
    }
    std::vector<char*> arguments{const_cast<char*>("cimhttp")};
    for (const std::string& argument : arguments_) {
        arguments.push_back(const_cast<char*>(argument.c_str()));
    }
    arguments.push_back(nullptr);
    execv(CIMHTTP_PROGRAM, arguments.data());
    _exit(127);
}

Outcome Program::run() const {
    Pipe out;
    Pipe err;
    const pid_t child = fork();
    if (child == 0) {
        dup2(open("/dev/null", O_RDONLY), STDIN_FILENO);
        dup2(out.writer(), STDOUT_FILENO);
        dup2(err.writer(), STDERR_FILENO);
        execute();
    }
    out.closeWriter();
    err.closeWriter();
    Outcome outcome;
    readBoth(out, err, outputLimit_, outcome);
    waitFor(child, outcome);
    return outcome;
}

Outcome Program::runOnTerminal(const std::string& prompt, const std::string& typed) const {
    int terminal = -1;
    winsize size{};
    size.ws_col = 80;
    size.ws_row = 24;
    const pid_t child = forkpty(&terminal, nullptr, nullptr, &size);
    if (child == 0) {
        execute();
    }
    Outcome outcome;
    bool isTyped = prompt.empty();
    while (readSome(terminal, outcome.out)) {
        if (!isTyped && outcome.out.find(prompt) != std::string::npos) {
            isTyped = true;
            [[maybe_unused]] const auto written = write(terminal, typed.data(), typed.size());
        }
    }
    close(terminal);
    waitFor(child, outcome);
    return outcome;
}

Outcome run(std::vector<std::string> arguments) {
    return Program(std::move(arguments)).run();
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream input(text);
    for (std::string line; std::getline(input, line);) {
        lines.push_back(line);
    }
    return lines;
}

}  // namespace tool
