#pragma once

#include <cstddef>
#include <ostream>
#include <set>
#include <string>

#include "tools/console/Progress.h"

namespace tool {

/// What a person is told on standard error, each notice on a line of its own and once only: a retry that
/// fails as the first try did says nothing new. Text from servers is made safe.
class Notices {
public:
    /// `error` and `progress` must outlive this object.
    Notices(std::ostream& error, Progress& progress) : error_(error), progress_(progress) {}

    /// A notice, with the program's name before it.
    void say(const std::string& text);

    /// The same of a failure, which counts even when it was told before.
    void fail(const std::string& text);

    /// What was said may be said again.
    void forget() { said_.clear(); }

    /// What was said last; empty when nothing was.
    const std::string& last() const { return last_; }

    /// How many failures there were so far.
    std::size_t failures() const { return failures_; }

    /// A line of the log as it stands, every time.
    void trace(const std::string& text);

private:
    void write(const std::string& text);

    std::ostream& error_;
    Progress& progress_;
    std::set<std::string> said_;
    std::string last_;
    std::size_t failures_ = 0;
};

}  // namespace tool
