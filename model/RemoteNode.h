#pragma once

#include <string>
#include <vector>

namespace NQELVSK20 {

class PegClient;
class TCimHTTPNamespace;

/// One controller node of the machine that a namespace is connected to.
struct RemoteNode {
    std::size_t index;  ///< Zero-based, in the order in which the nodes were given to `connect`.
    std::string key;    ///< The controller's number plus one, in decimal.
    PegClient& client;  ///< Belongs to the namespace.
};

/// The nodes of a namespace in node order. None before its Init; a node without a client is a broken
/// precondition and left out.
std::vector<RemoteNode> RemoteNodes(const TCimHTTPNamespace& nameSpace);

}  // namespace NQELVSK20
