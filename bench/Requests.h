#pragma once

#include <functional>
#include <string>
#include <vector>

namespace bench {

/// Loopback address at which RecordRequests serves, over plain HTTP on port 5988.
std::string RecordingAddress();

/// The requests, head and body, that `work` has a client make. It connects to RecordingAddress, where the
/// sample machine's first node is served meanwhile, and what it says is recorded from the moment that it
/// calls its argument. Starts a thread; to be called in a contestant's own process.
std::vector<std::string> RecordRequests(const std::function<void(const std::function<void()>& begin)>& work);

}  // namespace bench
