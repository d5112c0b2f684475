#include "tests/support/Process.h"

#include <windows.h>

#include <array>
#include <csignal>
#include <cwchar>
#include <map>
#include <memory>
#include <stdexcept>

#include "tests/support/windows/OutputReader.h"
#include "tests/support/windows/PseudoConsole.h"

namespace support {

namespace {

// What a program ends with that was killed, and one that Ctrl-C ended.
constexpr UINT kKilledStatus = 0xDEAD;
constexpr DWORD kInterruptedStatus = 0xC000013A;

std::wstring wide(const std::string& text) {
    const int length = static_cast<int>(text.size());
    std::wstring result(
        static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0)), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), length, result.data(), static_cast<int>(result.size()));
    return result;
}

/// A word as the program's start-up code takes it back from a command line.
std::wstring quoted(const std::wstring& word) {
    if (!word.empty() && word.find_first_of(L" \t\"") == std::wstring::npos) {
        return word;
    }
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

std::wstring commandLineOf(const std::vector<std::string>& command) {
    std::wstring line;
    for (const std::string& word : command) {
        line += (line.empty() ? L"" : L" ") + quoted(wide(word));
    }
    return line;
}

std::wstring environmentWith(const std::map<std::string, std::optional<std::string>>& changes) {
    std::map<std::wstring, std::wstring> variables;
    wchar_t* const block = GetEnvironmentStringsW();
    for (const wchar_t* entry = block; *entry != L'\0'; entry += std::wcslen(entry) + 1) {
        const std::wstring text = entry;
        const std::size_t equals = text.find(L'=', 1);  // a drive's current folder begins with one
        variables[text.substr(0, equals)] = text.substr(equals + 1);
    }
    FreeEnvironmentStringsW(block);
    for (const auto& [name, value] : changes) {
        variables.erase(wide(name));
        if (value) {
            variables[wide(name)] = wide(*value);
        }
    }
    std::wstring result;
    for (const auto& [name, value] : variables) {
        (result += name + L'=' + value) += L'\0';
    }
    return result += L'\0';
}

HANDLE nothingToRead() {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return CreateFileW(L"NUL", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, OPEN_EXISTING, 0,
                       nullptr);
}

/// What a process starts with beside its command and environment: one attribute.
class Start {
public:
    /// With these three streams, and none of this process's other handles, since a test's server stays
    /// reachable as long as anybody holds its socket.
    explicit Start(std::array<HANDLE, 3> streams) : streams_(streams) {
        setAttribute(PROC_THREAD_ATTRIBUTE_HANDLE_LIST, streams_.data(), sizeof streams_);
        info_.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
        info_.StartupInfo.hStdInput = streams_[0];
        info_.StartupInfo.hStdOutput = streams_[1];
        info_.StartupInfo.hStdError = streams_[2];
        inherits_ = TRUE;
        // Apart from this process's own console, where there is one.
        flags_ |= CREATE_NEW_PROCESS_GROUP;
    }

    explicit Start(const PseudoConsole& console) {
        setAttribute(PROC_THREAD_ATTRIBUTE_PSEUDOCONSOLE, console.handle(), sizeof(HPCON));
    }
    ~Start() { DeleteProcThreadAttributeList(info_.lpAttributeList); }
    Start(const Start&) = delete;
    Start& operator=(const Start&) = delete;

    PROCESS_INFORMATION run(const std::vector<std::string>& command, std::wstring environment) {
        std::wstring line = commandLineOf(command);
        PROCESS_INFORMATION process{};
        if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, inherits_, flags_, environment.data(),
                           nullptr, &info_.StartupInfo, &process) == 0) {
            throw std::runtime_error("cannot start " + command.front() + ": error " +
                                     std::to_string(GetLastError()));
        }
        return process;
    }

private:
    void setAttribute(DWORD_PTR which, void* value, std::size_t valueSize) {
        SIZE_T size = 0;
        InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
        attributes_.resize(size);
        info_.StartupInfo.cb = sizeof info_;
        info_.lpAttributeList = reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(attributes_.data());
        InitializeProcThreadAttributeList(info_.lpAttributeList, 1, 0, &size);
        UpdateProcThreadAttribute(info_.lpAttributeList, 0, which, value, valueSize, nullptr, nullptr);
    }

    std::array<HANDLE, 3> streams_{};
    std::vector<unsigned char> attributes_;
    STARTUPINFOEXW info_{};
    BOOL inherits_ = FALSE;
    DWORD flags_ = EXTENDED_STARTUPINFO_PRESENT | CREATE_UNICODE_ENVIRONMENT;
};

}  // namespace

/// The process of a Windows system. There a program asks another to end through a console that both share,
/// which those on pipes have none of: every signal ends them at once.
class Process::Impl {
public:
    Impl(const std::vector<std::string>& command, const ProcessOptions& options)
        : isTerminal_(options.terminal),
          longestRun_(options.longestRun),
          end_(std::chrono::steady_clock::now() + longestRun_),
          out_(options.closeOutputAfter),
          err_(std::numeric_limits<std::size_t>::max()) {
        const std::wstring environment = environmentWith(options.variables);
        options.terminal ? startOnConsole(command, environment) : startOnPipes(command, environment);
    }
    ~Impl() {
        TerminateProcess(process_.hProcess, kKilledStatus);
        CloseHandle(process_.hThread);
        CloseHandle(process_.hProcess);
    }
    Impl(const Impl&) = delete;
    Impl& operator=(const Impl&) = delete;

    std::string readLine() {
        std::size_t end = std::string::npos;
        std::string text = out_.text();
        while ((end = text.find('\n', consumed_)) == std::string::npos && readMore(text)) {
        }
        const std::string line = text.substr(consumed_, end - consumed_);
        consumed_ = end == std::string::npos ? text.size() : end + 1;
        return line;
    }

    bool readUntil(const std::string& what) {
        std::string text = out_.text();
        while (shown(text).find(what) == std::string::npos) {
            if (!readMore(text)) {
                return false;
            }
        }
        return true;
    }

    void type(const std::string& text) const { console_->type(text); }

    int id() const { return static_cast<int>(process_.dwProcessId); }
    void signal() const { TerminateProcess(process_.hProcess, kKilledStatus); }

    ProcessResult wait() {
        std::string killed;
        if (!waitForEnd()) {
            TerminateProcess(process_.hProcess, kKilledStatus);
            WaitForSingleObject(process_.hProcess, INFINITE);
            killed = "[killed after " + std::to_string(longestRun_.count()) + " ms]\n";
        }
        if (console_) {
            console_.reset();
            out_.waitForEnd(end_);
        }
        DWORD status = 0;
        GetExitCodeProcess(process_.hProcess, &status);
        ProcessResult result;
        result.signal = status == kKilledStatus ? SIGTERM : status == kInterruptedStatus ? SIGINT : 0;
        result.status = result.signal != 0 ? -1 : static_cast<int>(status);
        result.out = shown(out_.text().substr(consumed_));
        result.err = err_.text() + killed;
        return result;
    }

private:
    void startOnPipes(const std::vector<std::string>& command, const std::wstring& environment) {
        const HANDLE nothing = nothingToRead();
        for (const HANDLE output : {out_.writer(), err_.writer()}) {
            SetHandleInformation(output, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
        }
        process_ = Start({nothing, out_.writer(), err_.writer()}).run(command, environment);
        CloseHandle(nothing);
        out_.start();
        err_.start();
    }

    void startOnConsole(std::vector<std::string> command, const std::wstring& environment) {
        console_ = std::make_unique<PseudoConsole>(out_.writer());
        command.insert(command.begin(), {ON_CONSOLE_PROGRAM, console_->interruptName()});
        process_ = Start(*console_).run(command, environment);
        out_.start();
    }

    /// What was printed, given what came.
    std::string shown(const std::string& text) const { return isTerminal_ ? textOf(text) : text; }

    /// False when its time is over before it ends. A console's output goes on until the console is closed.
    bool waitForEnd() {
        return (console_ || (out_.waitForEnd(end_) && err_.waitForEnd(end_))) &&
               WaitForSingleObject(process_.hProcess, timeLeft()) == WAIT_OBJECT_0;
    }

    bool readMore(std::string& text) {
        const bool more = out_.waitForMore(text.size(), end_);
        text = out_.text();
        return more;
    }

    DWORD timeLeft() const {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(end_ - std::chrono::steady_clock::now());
        return left.count() > 0 ? static_cast<DWORD>(left.count()) : 0;
    }

    bool isTerminal_;
    std::chrono::milliseconds longestRun_;
    OutputReader::TimePoint end_;
    std::size_t consumed_ = 0;
    PROCESS_INFORMATION process_{};
    OutputReader out_;
    OutputReader err_;
    std::unique_ptr<PseudoConsole> console_;  // goes first, since it holds the other end of an output
};

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

void Process::signal(int /*number*/) const {
    impl_->signal();
}

int Process::id() const {
    return impl_->id();
}

ProcessResult Process::wait() {
    return impl_->wait();
}

}  // namespace support
