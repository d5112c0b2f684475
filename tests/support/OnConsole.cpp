// Runs a program on the console of its own process: EVENT PROGRAM ARGUMENT... Presses Ctrl-C there as often
// as EVENT is set.
//
// A process that starts on a pseudo console keeps the outputs of whoever started it, where there are any. So
// this one starts there and opens the console itself, for the program that it runs.

#include <windows.h>

#include <array>
#include <cwchar>
#include <string>

namespace {

HANDLE openConsole(const wchar_t* name) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return CreateFileW(name, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                       OPEN_EXISTING, 0, nullptr);
}

/// What follows a word of a command line, which may be in quotation marks.
wchar_t* afterWord(wchar_t* line) {
    wchar_t* const end = *line == L'"' ? std::wcschr(line + 1, L'"') : line;
    return std::wcschr(end, L' ') + 1;
}

/// The program ends with this process, however that ends.
void tie(HANDLE process) {
    const HANDLE job = CreateJobObjectW(nullptr, nullptr);
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    AssignProcessToJobObject(job, process);
}

// Ctrl-C is the program's affair.
BOOL WINAPI stay(DWORD /*event*/) {
    return TRUE;
}

}  // namespace

int main() {
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = openConsole(L"CONIN$");
    start.hStdOutput = openConsole(L"CONOUT$");
    start.hStdError = start.hStdOutput;
    wchar_t* const arguments = afterWord(GetCommandLineW());
    wchar_t* const command = afterWord(arguments);
    const std::wstring event(arguments, command - 1);
    PROCESS_INFORMATION process{};
    if (CreateProcessW(nullptr, command, nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &process) ==
        0) {
        return 1;
    }
    tie(process.hProcess);
    SetConsoleCtrlHandler(stay, TRUE);
    const std::array<HANDLE, 2> changes{process.hProcess, OpenEventW(SYNCHRONIZE, FALSE, event.c_str())};
    while (WaitForMultipleObjects(changes.size(), changes.data(), FALSE, INFINITE) == WAIT_OBJECT_0 + 1) {
        GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0);
    }
    DWORD status = 0;
    GetExitCodeProcess(process.hProcess, &status);
    return static_cast<int>(status);
}
