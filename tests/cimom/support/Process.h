#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace cimom::test {

/// What a program printed and how it ended.
struct ProcessResult {
    int status = -1;  ///< Exit status; 127 when there is no such program, -1 when a signal ended it.
    std::string out;
    std::string err;
};

/// Runs a program, found along PATH, to its end, without a shell.
ProcessResult runProcess(const std::vector<std::string>& command);

/// A program that runs beside the test; ended at the latest with this object.
class BackgroundProcess {
public:
    explicit BackgroundProcess(const std::vector<std::string>& command);
    ~BackgroundProcess();
    BackgroundProcess(const BackgroundProcess&) = delete;
    BackgroundProcess& operator=(const BackgroundProcess&) = delete;

    /// The next line of its standard output, without line end; empty when it has closed it.
    std::string readLine();

    void signal(int number);

    /// Waits for its end and returns the rest of what it printed.
    ProcessResult wait();

private:
    pid_t process_ = -1;
    int out_ = -1;
    int err_ = -1;
};

}  // namespace cimom::test
