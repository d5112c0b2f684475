// How a remote class comes to its members.

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/Exception.h>

#include "connection/Log.h"
#include "connection/PegClient.h"
#include "connection/PegText.h"
#include "connection/Precondition.h"
#include "connection/TCimHTTPNamespace.h"
#include "model/DefinitionTimeout.h"
#include "model/RemoteClassReader.h"
#include "model/RemoteNode.h"
#include "model/TCimHTTPClass.h"
#include "namespace/TNamespaceMembers.h"
#include "namespace/UnionLookup.h"
#include "union/TUnionNamespace.h"

namespace NQELVSK20 {

namespace {

// A class without its definition would pass for one without members, keys and superclass.
[[noreturn]] void ThrowUndefined(bool timedOut) {
    if (timedOut) {
        throw Pegasus::ConnectionTimeoutException();
    }
    throw Pegasus::UninitializedObjectException();
}

}  // namespace

void TCimHTTPClass::Initialize() {
    if (superclass_.lock()) {
        return;
    }
    const auto nameSpace = OwnNamespace("Initialize");
    if (!nameSpace) {
        return;
    }
    const auto root = TNamespaceMembers::RootClass(*nameSpace);
    if (root.get() != this) {
        superclass_ = root;
    }
    if (IsRoot() || (!nameSpace->getIsServeESXi() && IsCopiedFromUnion(*nameSpace))) {
        return;
    }
    ReadFromNodes(nameSpace);
    AddNodeProperty();
}

// Asked in any case: hosts expect the question and, when it fails, the line in the log.
bool TCimHTTPClass::IsCopiedFromUnion(const TCimHTTPNamespace& nameSpace) const {
    return IsInUnion(nameSpace) && !TNamespaceMembers::IsReadFromNodes(nameSpace, name_);
}

bool TCimHTTPClass::IsInUnion(const TCimHTTPNamespace& nameSpace) const {
    const std::string where = "TCimHTTPClass::Initialize " + name_;
    try {
        const auto unionNamespace = UnionNamespaceBehind(nameSpace, where);
        return unionNamespace && unionNamespace->GetClass(name_, TContext());
    } catch (...) {
        LogTrace(where + " Catch an exception while trying to get this class in union namespace");
        return false;
    }
}

void TCimHTTPClass::ReadFromNodes(const boost::shared_ptr<TCimHTTPNamespace>& nameSpace) {
    const auto* const remoteName = nameSpace->getPegNSP();
    const std::vector<RemoteNode> nodes = RemoteNodes(*nameSpace);
    if (nodes.empty() || !PointerIsSet(remoteName != nullptr, "TCimHTTPClass::Initialize " + name_)) {
        return;
    }
    const std::string remoteText = ToText(*remoteName);
    RemoteClassReader reader(nameSpace, shared_from_this());
    bool isDefined = false;
    bool timedOut = false;
    for (const RemoteNode& node : nodes) {
        const Pegasus::CIMClass definition = node.client.GetClass(
            remoteText, name_, kDefinitionTimeoutMs, true, true, false, Pegasus::CIMPropertyList());
        // A node that is down or lacks the class says nothing; the others' definitions stand.
        if (!definition.isUninitialized()) {
            reader.Read(definition);
            isDefined = true;
        } else if (node.client.LastRequestTimedOut()) {
            timedOut = true;
        }
    }
    if (!isDefined) {
        ThrowUndefined(timedOut);
    }
}

void TCimHTTPClass::AddNodeProperty() {
    // A string; empty until an enumeration tells which node an instance came from.
    properties_.emplace("nodeid", AllocatePropertyDecl("NodeID", TCIMValue(""), TContext()));
}

}  // namespace NQELVSK20
