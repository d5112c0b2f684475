#pragma once

#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "cimom/http/Fault.h"

namespace cimom {

/// The faults that a server was told to commit. May be used from several threads.
class FaultPlan {
public:
    void add(const Fault& fault);
    void clear();

    /// The first fault that applies to a request, which then counts as used once more.
    std::optional<Fault> take(const std::string& address, const std::string& operation,
                              const std::string& className);

private:
    std::mutex mutex_;
    std::vector<Fault> faults_;
};

}  // namespace cimom
