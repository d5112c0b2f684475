#pragma once

#include <chrono>
#include <cstddef>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace support {

/// How a program ended and what it printed.
struct ProcessResult {
    int status = -1;  ///< Exit status; -1 when a signal ended it.
    int signal = 0;   ///< That signal.
    std::string out;
    std::string err;
};

/// What a program starts with, beside its arguments.
struct ProcessOptions {
    /// Changes to the environment; a variable without a value is taken away.
    std::map<std::string, std::optional<std::string>> variables;
    /// Its three streams are a terminal of its own, 80 columns wide; what that shows is `out`. Otherwise
    /// there is nothing to read, and each output is a pipe.
    bool terminal = false;
    /// Its output is closed after so many bytes were read, as `head` does.
    std::size_t closeOutputAfter = std::numeric_limits<std::size_t>::max();
    /// Then it is killed. The default is well below the time that a test has, also on a slow machine with a
    /// sanitizer.
    std::chrono::milliseconds longestRun{60000};
};

/// A program that runs beside the test, found along PATH, started without a shell; killed at the latest with
/// this object. One that does not end in time is killed too, and `err` then says what it was doing.
class Process {
public:
    /// Throws std::runtime_error that names the program when it cannot be started.
    explicit Process(const std::vector<std::string>& command, const ProcessOptions& options = {});
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    /// The next line of its standard output, without line end; what is left when it has closed it.
    std::string readLine();

    /// Reads on until its output contains a text; false when it ends before.
    bool readUntil(const std::string& text);

    /// Types a text on its terminal.
    void type(const std::string& text) const;

    void signal(int number) const;

    /// Its number in the system.
    int id() const;

    /// Waits for its end and returns what it printed and was not read as a line.
    ProcessResult wait();

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

/// The lines of an output, without their ends.
std::vector<std::string> linesOf(const std::string& text);

/// Runs a program to its end.
ProcessResult runProcess(const std::vector<std::string>& command, const ProcessOptions& options = {});

}  // namespace support
