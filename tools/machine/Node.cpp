#include "tools/machine/Node.h"

#include <algorithm>
#include <string_view>

#include "tools/common/Integer.h"
#include "tools/common/SafeText.h"
#include "tools/common/UsageError.h"

namespace tool {

namespace {

constexpr std::size_t kLongestHost = 40;

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
            "a user's name holds no colon; passwords come from --password-file or CIMHTTP_PASSWORD");
    }
    if (std::any_of(user.begin(), user.end(), isControl)) {
        throw UsageError("a user's name holds no control character");
    }
}

bool isPort(const std::string& text) {
    const auto number = parseInteger(text);
    return number && isDigit(text.front()) && number->size > 0 && number->size <= 65535;
}

// What follows a colon and is no port may be meant for a password: it is not shown.
[[noreturn]] void refusePort(const std::string& host, const std::string& port) {
    const std::string node = "--node " + cutTo(host, kLongestHost);
    if (!isPort(port)) {
        throw UsageError(node + ": a host has no colon; ports are 5989 for HTTPS and 5988 for HTTP");
    }
    if (port == "5989" || port == "5988") {
        throw UsageError(node + ':' + port + ": leave the port out; it is 5989 for HTTPS and 5988 for HTTP");
    }
    throw UsageError(node + ':' + port + ": first ssh -NL 127.0.0.9:5989:" + cutTo(host, kLongestHost) + ':' +
                     port + " LOGIN, then --node 127.0.0.9");
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
        throw UsageError("--node '" + user + "@': [USER@]HOST is expected");
    }
    if (hasPort(host)) {
        refusePort(host.substr(0, host.rfind(':')), host.substr(host.rfind(':') + 1));
    }
    if (!std::all_of(host.begin(), host.end(), isOfHost)) {
        throw UsageError("--node '" + cutTo(host, kLongestHost) + "': a host's name or address is expected");
    }
    return {withoutBrackets(host), user, {}};
}

std::string hostAndPort(const std::string& host, int port) {
    const bool isIpv6 = host.find(':') != std::string::npos;
    return (isIpv6 ? '[' + host + ']' : host) + ':' + std::to_string(port);
}

}  // namespace tool
