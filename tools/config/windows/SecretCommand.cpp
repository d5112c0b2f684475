#include "tools/config/SecretCommand.h"

#include <windows.h>

#include <array>

#include "tools/config/SecretLine.h"

namespace tool {

namespace {

constexpr std::size_t kMostKept = 64 * 1024;

std::wstring wideText(const std::string& text) {
    const int length = static_cast<int>(text.size());
    std::wstring result(
        static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0)), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), length, result.data(), static_cast<int>(result.size()));
    return result;
}

/// A word as a program's start-up code takes it back from a command line.
std::wstring quotedWord(const std::wstring& word) {
    std::wstring result = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t letter : word) {
        if (letter == L'"') {
            result.append(backslashes + 1, L'\\');
        }
        backslashes = letter == L'\\' ? backslashes + 1 : 0;
        result += letter;
    }
    return result.append(backslashes, L'\\') + L'"';
}

std::wstring lineOfWords(const std::vector<std::string>& command) {
    std::wstring line;
    for (const std::string& word : command) {
        line += (line.empty() ? L"" : L" ") + quotedWord(wideText(word));
    }
    return line;
}

/// The two ends of what a program prints.
class OutputPipe {
public:
    OutputPipe() {
        SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
        CreatePipe(&read_, &write_, &inherited, 0);
        SetHandleInformation(read_, HANDLE_FLAG_INHERIT, 0);
    }
    ~OutputPipe() {
        closeWriting();
        CloseHandle(read_);
    }
    OutputPipe(const OutputPipe&) = delete;
    OutputPipe& operator=(const OutputPipe&) = delete;

    HANDLE writing() const { return write_; }
    void closeWriting() {
        if (write_ != nullptr) {
            CloseHandle(write_);
            write_ = nullptr;
        }
    }

    std::string readAll() const {
        std::string text;
        std::array<char, 4096> piece{};
        DWORD size = 0;
        while (ReadFile(read_, piece.data(), static_cast<DWORD>(piece.size()), &size, nullptr) != 0) {
            // The rest is read as well, so that the program can end as it means to.
            text.append(piece.data(), text.size() < kMostKept ? size : 0);
        }
        return text;
    }

private:
    HANDLE read_ = nullptr;
    HANDLE write_ = nullptr;
};

PROCESS_INFORMATION startPrinting(const std::vector<std::string>& command, HANDLE output) {
    STARTUPINFOW streams{};
    streams.cb = sizeof streams;
    streams.dwFlags = STARTF_USESTDHANDLES;
    streams.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
    streams.hStdOutput = output;
    streams.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION process{};
    std::wstring line = lineOfWords(command);
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &streams,
                       &process) == 0) {
        failCommand(command.front(), "cannot be run: error " + std::to_string(GetLastError()));
    }
    CloseHandle(process.hThread);
    return process;
}

}  // namespace

std::string firstLineOf(const std::vector<std::string>& command) {
    OutputPipe pipe;
    const PROCESS_INFORMATION process = startPrinting(command, pipe.writing());
    pipe.closeWriting();
    const std::string output = pipe.readAll();
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD status = 0;
    GetExitCodeProcess(process.hProcess, &status);
    CloseHandle(process.hProcess);
    if (status != 0) {
        failCommand(command.front(), "ended with the status " + std::to_string(status));
    }
    return firstLineOf(output, command.front());
}

}  // namespace tool
