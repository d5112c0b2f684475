#include "model/RemoteNode.h"

#include "connection/Precondition.h"
#include "connection/TCimHTTPNamespace.h"

namespace NQELVSK20 {

std::vector<RemoteNode> RemoteNodes(const TCimHTTPNamespace& nameSpace) {
    std::vector<RemoteNode> nodes;
    const TCimHTTPNamespace::NodeClients clients = nameSpace.getPegClientVec();
    for (std::size_t i = 0; i < clients.size(); ++i) {
        const auto& node = clients[i];
        if (PointerIsSet(!node.empty() && node.begin()->second != nullptr,
                         "RemoteNodes " + std::to_string(i))) {
            nodes.push_back({i, node.begin()->first, *node.begin()->second});
        }
    }
    return nodes;
}

}  // namespace NQELVSK20
