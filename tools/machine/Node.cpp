#include "tools/machine/Node.h"

#include <algorithm>
#include <string_view>

#include "tools/common/Integer.h"
#include "tools/common/UsageError.h"

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

bool isControl(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

// Shows nothing of it: what follows a colon may be meant for a password.
void requireUser(const std::string& user) {
    if (user.find(':') != std::string::npos) {
        throw UsageError(
            "a user's name holds no colon; a password comes from --password-file, from the variable "
            "CIMHTTP_PASSWORD or from a prompt");
    }
    if (std::any_of(user.begin(), user.end(), isControl)) {
        throw UsageError("a user's name holds no control character");
    }
}

// A name or an address; what else there is would end up in the head of a request.
bool isOfHost(char c) {
    const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    return isLetter || isDigit(c) || std::string_view("-._~:%[]").find(c) != std::string_view::npos;
}

}  // namespace

Node parseNode(const std::string& text, const std::string& defaultUser) {
    // A user's name may hold an "@", a host may not.
    const std::size_t at = text.rfind('@');
    const std::string host = at == std::string::npos ? text : text.substr(at + 1);
    const std::string user = at == std::string::npos ? defaultUser : text.substr(0, at);
    requireUser(user);
    if (host.empty()) {
        throw UsageError("--node '" + text + "' names no host");
    }
    if (hasPort(host)) {
        throw UsageError("--node '" + host.substr(0, host.rfind(':')) +
                         "': leave out what follows the colon; the port is 5989 for HTTPS and 5988 for HTTP");
    }
    if (!std::all_of(host.begin(), host.end(), isOfHost)) {
        throw UsageError("--node '" + text + "': a host's name or address is expected");
    }
    return {withoutBrackets(host), user, {}};
}

std::string hostAndPort(const std::string& host, int port) {
    const bool isIpv6 = host.find(':') != std::string::npos;
    return (isIpv6 ? '[' + host + ']' : host) + ':' + std::to_string(port);
}

}  // namespace tool
