#pragma once

#include <string>
#include <vector>

#include "cimom/Server.h"

namespace tool {

/// The sample machine inside this process, for a person who has no CIM server at hand: one server a node, on
/// loopback addresses of its own, HTTPS on 5989 and HTTP on 5988, without authentication.
///
/// Serves from a thread of its own until it is destroyed. Throws Failure when no address is free.
class EmbeddedMachine {
public:
    explicit EmbeddedMachine(std::size_t nodes);

    /// The nodes' addresses, in node order.
    const std::vector<std::string>& hosts() const { return hosts_; }

private:
    void addNode();
    bool listenOn(const std::string& address, const std::shared_ptr<cimom::Repository>& repository);
    bool listen(const std::string& address, std::uint16_t port, bool tls,
                const std::shared_ptr<cimom::Repository>& repository);

    cimom::Server server_;
    std::vector<std::string> hosts_;
    unsigned nextAddress_;
    std::string refusal_;  // why the last address could not be taken
};

}  // namespace tool
