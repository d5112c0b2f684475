#include "tools/Node.h"

#include <algorithm>

#include "tools/UsageError.h"

namespace tool {

namespace {

std::string withoutBrackets(const std::string& host) {
    const bool bracketed = host.size() > 2 && host.front() == '[' && host.back() == ']';
    return bracketed ? host.substr(1, host.size() - 2) : host;
}

// A single colon, or one after a bracket, ends a host; an IPv6 address has more of them.
bool hasPort(const std::string& host) {
    return std::count(host.begin(), host.end(), ':') == 1 || host.find("]:") != std::string::npos;
}

}  // namespace

Node parseNode(const std::string& text, const std::string& defaultUser) {
    // A user's name may hold an "@", a host may not.
    const std::size_t at = text.rfind('@');
    const std::string host = at == std::string::npos ? text : text.substr(at + 1);
    const std::string user = at == std::string::npos ? defaultUser : text.substr(0, at);
    if (host.empty()) {
        throw UsageError("--node '" + text + "' names no host");
    }
    if (hasPort(host)) {
        throw UsageError("--node '" + text + "': leave the port out; it is 5989 for HTTPS and 5988 for HTTP");
    }
    return {withoutBrackets(host), user, {}};
}

std::string hostAndPort(const std::string& host, int port) {
    const bool isIpv6 = host.find(':') != std::string::npos;
    return (isIpv6 ? '[' + host + ']' : host) + ':' + std::to_string(port);
}

}  // namespace tool
