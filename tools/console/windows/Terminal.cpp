#include "tools/console/Terminal.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>

#include "tools/common/Failure.h"

namespace tool::terminal {

namespace {

// What the handler looks at, which Windows calls on a thread of its own.
std::atomic<bool> progressShown{false};
std::atomic<bool> echoIsOff{false};
std::atomic<DWORD> shownMode{0};
std::atomic<UINT> inheritedCodePage{0};
std::atomic<UINT> interruptStatus{STATUS_CONTROL_C_EXIT};  // as the process would end without the handler

HANDLE input() {
    return GetStdHandle(STD_INPUT_HANDLE);
}

bool isConsole(HANDLE handle) {
    DWORD mode = 0;
    return GetConsoleMode(handle, &mode) != 0;
}

/// Sequences such as "to the start of the line" act instead of being shown.
void interpretSequences(HANDLE handle) {
    DWORD mode = 0;
    if (GetConsoleMode(handle, &mode) != 0) {
        SetConsoleMode(handle, mode | ENABLE_PROCESSED_OUTPUT | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
    }
}

void writeError(const std::string& text) {
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_ERROR_HANDLE), text.data(), static_cast<DWORD>(text.size()), &written,
              nullptr);
}

// The code page belongs to the console, which goes on without this program.
void restoreCodePage() {
    if (inheritedCodePage != 0) {
        SetConsoleOutputCP(inheritedCodePage);
    }
}

BOOL WINAPI putInOrder(DWORD /*event*/) {
    if (progressShown) {
        writeError("\r\033[K");
    }
    if (echoIsOff) {
        SetConsoleMode(input(), shownMode);
        writeError("\r\n");
    }
    restoreCodePage();
    ExitProcess(interruptStatus);
}

/// No echo of what is typed, as long as it lives.
class HiddenInput {
public:
    HiddenInput() {
        DWORD mode = 0;
        if (GetConsoleMode(input(), &mode) == 0) {
            return;
        }
        shownMode = mode;
        echoIsOff = true;
        FlushConsoleInputBuffer(input());
        SetConsoleMode(input(), mode & ~static_cast<DWORD>(ENABLE_ECHO_INPUT));
    }
    ~HiddenInput() {
        if (echoIsOff) {
            SetConsoleMode(input(), shownMode);
            echoIsOff = false;
            std::cerr << std::endl;  // the one that the person typed was not shown
        }
    }
    HiddenInput(const HiddenInput&) = delete;
    HiddenInput& operator=(const HiddenInput&) = delete;
};

std::string toUtf8(const std::wstring& text) {
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, result.data(), size, nullptr, nullptr);
    return result;
}

/// A line as it was typed; read byte by byte, a console would lose what its code page has not. False when
/// the input ends first.
bool readConsoleLine(std::string& line) {
    std::wstring typed;
    while (typed.empty() || typed.back() != L'\n') {
        std::array<wchar_t, 256> piece{};
        DWORD count = 0;
        if (ReadConsoleW(input(), piece.data(), static_cast<DWORD>(piece.size()), &count, nullptr) == 0 ||
            count == 0) {
            return false;
        }
        typed.append(piece.data(), count);
    }
    line = toUtf8(typed.substr(0, typed.find_first_of(L"\r\n")));
    return true;
}

std::size_t widthOf(HANDLE handle) {
    CONSOLE_SCREEN_BUFFER_INFO info{};
    if (GetConsoleScreenBufferInfo(handle, &info) == 0) {
        return 0;
    }
    return static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left + 1);
}

}  // namespace

bool isInput() {
    return isConsole(input());
}

bool isOutput() {
    return isConsole(GetStdHandle(STD_OUTPUT_HANDLE));
}

bool isError() {
    return isConsole(GetStdHandle(STD_ERROR_HANDLE));
}

std::size_t width(bool error) {
    return widthOf(GetStdHandle(error ? STD_ERROR_HANDLE : STD_OUTPUT_HANDLE));
}

// The C library has no number of its own for it, or forgets it.
bool lostReader(int error) {
    return error == EPIPE || ((error == 0 || error == EINVAL) &&
                              GetFileType(GetStdHandle(STD_OUTPUT_HANDLE)) == FILE_TYPE_PIPE);
}

std::string readSecret(const std::string& prompt) {
    // Before the prompt: switching the echo off throws away what was typed until then.
    const HiddenInput hidden;
    std::cerr << prompt << std::flush;
    std::string line;
    const bool read = isInput() ? readConsoleLine(line) : static_cast<bool>(std::getline(std::cin, line));
    if (!read) {
        throw Failure("no password was given", Failure::Kind::kLocal);
    }
    return line;
}

void prepare() {
    // The outputs are UTF-8, and their lines end as they do everywhere else.
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
    if (isOutput() || isError()) {
        inheritedCodePage = GetConsoleOutputCP();
        std::atexit(restoreCodePage);
        SetConsoleOutputCP(CP_UTF8);
        interpretSequences(GetStdHandle(STD_OUTPUT_HANDLE));
        interpretSequences(GetStdHandle(STD_ERROR_HANDLE));
    }
    SetConsoleCtrlHandler(putInOrder, TRUE);
}

void endOnInterrupt() {
    interruptStatus = 0;
}

void setProgressShown(bool isShown) {
    progressShown = isShown;
}

}  // namespace tool::terminal
