#pragma once

#include <string>

namespace NQELVSK20 {

class TCIMValue;

/// How the instances of one node are told from those of the others: the number kept in "NodeID", and the
/// prefix of "InstanceID" values.
///
/// In the namespaces of a management controller (their names hold "vqm" and the controller's zero-based
/// digit) the number comes from that digit, else it is the node key.
class NodeMark {
public:
    NodeMark(const std::string& namespaceName, const std::string& nodeKey, bool isMultiNode);

    const std::string& NodeNumber() const { return nodeNumber_; }

    /// Rewrites the value of an "InstanceID". On a single node outside a controller's namespaces only an
    /// empty one is: the others are unique as they are.
    void MarkInstanceId(TCIMValue& value) const;

private:
    std::string nodeNumber_;
    std::string instanceIdPrefix_;
    bool marksOnlyEmpty_;
};

}  // namespace NQELVSK20
