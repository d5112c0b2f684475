#pragma once

#include <string>
#include <vector>

namespace tool {

/// One node's CIM server and who asks it.
struct Node {
    std::string host;  ///< Name or address; IPv6 without brackets.
    std::string user;  ///< Empty: nobody in particular.
    std::string password;
    bool lacksPassword = false;  ///< There is a user, and nobody told the password.
    bool mayUseHttp = true;      ///< Whether it may be asked without encryption.
};

/// What `--node` was given, `[USER@]HOST`; `defaultUser` is taken when it names none. The password stays
/// empty. Throws UsageError for an empty host and for one with a port, since the ports are fixed.
Node parseNode(const std::string& text, const std::string& defaultUser);

/// HOST:PORT for messages, IPv6 in brackets.
std::string hostAndPort(const std::string& host, int port);

}  // namespace tool
