#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace tool {

// What the plug-in's log lines tell. The host contract fixes their texts, so that a host may read them.

/// A remote failure as the plug-in's client reports it: `KIND in PegClient::OPERATION(): MESSAGE`.
struct ClientFailure {
    std::string kind;       ///< Exception's class, e.g. "CIMException".
    std::string operation;  ///< E.g. "GetClass", "HTTPSConnect".
    std::string message;

    bool isConnect() const { return operation == "HTTPSConnect" || operation == "HTTPConnect"; }
    bool isCimError() const { return kind == "CIMException"; }
    bool isTimeout() const { return kind == "ConnectionTimeoutException"; }

    /// The request broke off: the client connects anew before it does anything else.
    bool breaksConnection() const { return !isConnect() && !isCimError() && !isTimeout(); }
    bool isRefusedLogin() const;  ///< The server answered with HTTP status 401.
};

/// A node has answered an enumeration.
struct NodeAnswer {
    std::size_t node = 0;  ///< Zero-based.
    std::string className;
    std::size_t instances = 0;
};

std::optional<ClientFailure> clientFailureIn(const std::string& line);
std::optional<NodeAnswer> nodeAnswerIn(const std::string& line);

/// The class that a lookup is about to fetch or find in its cache.
std::optional<std::string> lookedUpClassIn(const std::string& line);

/// The property that an instance was given by its server but that its class does not declare.
std::optional<std::string> undeclaredPropertyIn(const std::string& line);

bool beginsEnumeration(const std::string& line);

/// A class lookup has ended, or has reached the top of the class tree.
bool endsLookup(const std::string& line);

/// A node's connection is attempted.
bool beginsNodeConnect(const std::string& line);

/// The line tells of the plug-in's ordinary progress.
bool isTrace(const std::string& line);

}  // namespace tool
