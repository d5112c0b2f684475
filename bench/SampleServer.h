#pragma once

#include <string>
#include <vector>

#include "cimom/Server.h"

namespace bench {

/// The sample machine's first node on a thread of this process, over plain HTTP on port 5988: for what has to
/// be asked before something is measured.
class SampleServer {
public:
    /// Throws std::runtime_error.
    SampleServer();

    /// Where it is, which is none of ReplayServer's addresses.
    static std::string Address();

    /// What it was asked since then or since the start, as it came: head and body. Throws std::runtime_error
    /// when that is nothing.
    std::vector<std::string> Requests() const;
    void ForgetRequests() { server_.clearRequests(); }

private:
    cimom::Server server_;
};

}  // namespace bench
