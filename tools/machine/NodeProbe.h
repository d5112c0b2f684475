#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace tool {

/// Finds out which servers can be reached before the plug-in is let near them: it waits a minute and more for
/// one that accepts a connection and then says nothing. No password is sent, and no request.
class NodeProbe {
public:
    struct Target {
        std::string host;
        bool overHttps = true;  ///< Whether HTTPS is wanted, and HTTP.
        bool overHttp = true;
    };

    /// What came of one port.
    struct Port {
        bool answers = false;
        bool isSilent = false;  ///< It neither answers nor refuses to.
        std::string reason;     ///< Why it does not answer; empty when it does, and when it was not tried.
    };

    struct Finding {
        std::string nameFailure;  ///< Why the host has no address; empty when it has one.
        Port https;
        Port http;
    };

    /// `timeout` is what all attempts have together: they are made side by side.
    explicit NodeProbe(std::chrono::seconds timeout) : timeout_(timeout) {}

    /// One finding a target, in their order.
    std::vector<Finding> probe(const std::vector<Target>& targets) const;

private:
    std::chrono::seconds timeout_;
};

}  // namespace tool
