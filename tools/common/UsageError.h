#pragma once

#include <stdexcept>

namespace tool {

/// The person asked for something that cannot be meant: one line that says what, and exit status 2.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace tool
