#pragma once

#include <sys/types.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "cimom/data/Repository.h"

namespace bench {

/// A CIM server in a process of its own that answers from memory: the first time it sees a request, it asks
/// an embedded CIM server and keeps what that says; from then on the answer is only sent. What a client needs
/// is then the client's time.
class ReplayServer {
public:
    using Fill = std::function<std::shared_ptr<cimom::Repository>()>;

    /// Starts the process, which serves plain HTTP on `port` of each address, all with the same data. `fill`
    /// is called there. Must be made before the calling process starts a thread. Throws std::runtime_error.
    ReplayServer(const std::vector<std::string>& addresses, std::uint16_t port, const Fill& fill);
    /// Ends the process.
    ~ReplayServer();
    ReplayServer(const ReplayServer&) = delete;
    ReplayServer& operator=(const ReplayServer&) = delete;

private:
    pid_t process_ = -1;
};

}  // namespace bench
