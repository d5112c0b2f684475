#pragma once

#include <cstddef>
#include <fstream>
#include <string>
#include <vector>

#include "tools/console/Notices.h"
#include "tools/machine/RequestListener.h"

namespace tool {

/// Writes down every request's beginning and end, each attempt that failed between and what came, as it
/// happens: a line of JSON each, in a file that nobody else can read. Nodes are counted from 1. Users and
/// passwords are not in it.
class RequestTrace : public RequestListener {
public:
    /// Throws Failure when the file cannot be made. `notices`, which must outlive the trace, are told once
    /// when it can no longer be written.
    RequestTrace(const std::string& path, Notices& notices);

    void begun(const NQELVSK20::ClientRequest& request, Clock::time_point when) override;
    void failed(const NQELVSK20::ClientFailure& failure) override;
    void received(std::size_t instances) override;
    void defined(const std::string& className) override;
    void ended(const NQELVSK20::ClientRequest& request, bool answered, Clock::time_point when) override;

private:
    class Line;

    void write(const Line& line);

    std::string path_;
    Notices& notices_;
    std::ofstream file_;
    std::vector<Clock::time_point> open_;  // when those began that have not ended, the innermost last
};

}  // namespace tool
