#include "connection/NodeZeroClients.h"

#include <atomic>

#include "connection/PegClient.h"

namespace NQELVSK20 {

namespace {

struct Node {
    PegClient client;
    Node* next = nullptr;
};

// Namespaces of different threads may get here at once, and the plug-in takes no lock.
std::atomic<Node*> head{nullptr};

}  // namespace

PegClient* CreateNodeZeroClient() {
    Node* node = new Node;
    node->next = head.load();
    while (!head.compare_exchange_weak(node->next, node)) {
    }
    return &node->client;
}

}  // namespace NQELVSK20
