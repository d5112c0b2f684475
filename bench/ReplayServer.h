#pragma once

#include <sys/types.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "cimom/data/Repository.h"

namespace bench {

/// CIM servers in a process of their own that answer from memory: the first time that one sees a request, it
/// asks an embedded CIM server and keeps what that says; from then on the answer is only sent. What a client
/// needs is then the client's time.
class ReplayServer {
public:
    struct Endpoint {
        std::string address;
        /// Makes its data; called in the server's process.
        std::function<std::shared_ptr<cimom::Repository>()> fill;
        std::uint16_t port = 5988;
        bool tls = false;
        /// Answers come in three segments with Nagle's algorithm on, as simple servers send them: the head,
        /// and the body in two halves.
        bool segments = false;
        bool closes = false;  ///< Each connection after one answer, which announces it.
    };

    /// Starts the process. Must be made before the calling process starts a thread. Throws
    /// std::runtime_error.
    explicit ReplayServer(std::vector<Endpoint> endpoints);
    /// Ends the process.
    ~ReplayServer();
    ReplayServer(const ReplayServer&) = delete;
    ReplayServer& operator=(const ReplayServer&) = delete;

    /// Loopback address of that number, which no other run at the same time uses. First called before the
    /// process has children, which see the same addresses then.
    static std::string Address(unsigned number = 0);

private:
    pid_t process_ = -1;
};

}  // namespace bench
