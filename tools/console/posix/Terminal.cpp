#include "tools/console/Terminal.h"

#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <iostream>
#include <string_view>

#include "tools/common/Failure.h"

namespace tool::terminal {

namespace {

// What the signal handlers look at. They read the others only while `echoIsOff` is set, which is set last and
// cleared first.
volatile std::sig_atomic_t progressShown = 0;
volatile std::sig_atomic_t echoIsOff = 0;
termios shown;
termios hidden;
std::string_view shownPrompt;

void writeError(std::string_view text) {
    [[maybe_unused]] const auto written = write(STDERR_FILENO, text.data(), text.size());
}

void putInOrder() {
    if (progressShown != 0) {
        writeError("\r\033[K");
    }
    if (echoIsOff != 0) {
        tcsetattr(STDIN_FILENO, TCSANOW, &shown);
        writeError("\n");
    }
}

extern "C" void endAfterCleaning(int signal) {
    putInOrder();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

extern "C" void stopAfterCleaning(int /*signal*/) {
    const int error = errno;
    putInOrder();
    std::raise(SIGSTOP);
    errno = error;
}

// Whoever stopped the program may have given the terminal to others: a shell switches the echo on.
extern "C" void goOnHidden(int /*signal*/) {
    const int error = errno;
    if (echoIsOff != 0) {
        tcsetattr(STDIN_FILENO, TCSANOW, &hidden);
        writeError(shownPrompt);
    }
    errno = error;
}

void handleUnlessIgnored(int signal, void (*handler)(int)) {
    if (std::signal(signal, handler) == SIG_IGN) {
        std::signal(signal, SIG_IGN);
    }
}

extern "C" void endAnswered(int /*signal*/) {
    putInOrder();
    _exit(0);
}

/// No echo of what is typed, as long as it lives.
class HiddenInput {
public:
    /// `prompt` must outlive it.
    explicit HiddenInput(const std::string& prompt) {
        if (tcgetattr(STDIN_FILENO, &shown) != 0) {
            return;
        }
        shownPrompt = prompt;
        hidden = shown;
        hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        echoIsOff = 1;
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &hidden);
    }
    ~HiddenInput() {
        if (echoIsOff != 0) {
            tcsetattr(STDIN_FILENO, TCSANOW, &shown);
            echoIsOff = 0;
            std::cerr << std::endl;  // the one that the person typed was not shown
        }
    }
    HiddenInput(const HiddenInput&) = delete;
    HiddenInput& operator=(const HiddenInput&) = delete;
};

}  // namespace

bool isInput() {
    return isatty(STDIN_FILENO) == 1;
}

bool isOutput() {
    return isatty(STDOUT_FILENO) == 1;
}

bool isError() {
    return isatty(STDERR_FILENO) == 1;
}

std::size_t width(bool error) {
    winsize size{};
    if (ioctl(error ? STDERR_FILENO : STDOUT_FILENO, TIOCGWINSZ, &size) != 0) {
        return 0;
    }
    return size.ws_col;
}

bool lostReader(int error) {
    return error == EPIPE;
}

std::string readSecret(const std::string& prompt) {
    // Before the prompt: switching the echo off throws away what was typed until then.
    const HiddenInput noEcho(prompt);
    std::cerr << prompt << std::flush;
    std::string line;
    if (!std::getline(std::cin, line)) {
        throw Failure("no password was given", Failure::Kind::kLocal);
    }
    return line;
}

void prepare() {
    std::signal(SIGINT, endAfterCleaning);
    std::signal(SIGTERM, endAfterCleaning);
    std::signal(SIGPIPE, SIG_IGN);
    handleUnlessIgnored(SIGTSTP, stopAfterCleaning);
    std::signal(SIGCONT, goOnHidden);
}

void endOnInterrupt() {
    std::signal(SIGINT, endAnswered);
}

void setProgressShown(bool isShown) {
    progressShown = isShown ? 1 : 0;
}

}  // namespace tool::terminal
