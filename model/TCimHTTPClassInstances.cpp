// The instances of a class: collected from every node, delivered, looked up.

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMPropertyList.h>

#include <utility>

#include "connection/Log.h"
#include "connection/PegClient.h"
#include "connection/PegText.h"
#include "connection/Precondition.h"
#include "connection/TCimHTTPNamespace.h"
#include "model/RemoteInstanceReader.h"
#include "model/RemoteNode.h"
#include "model/TCimHTTPClass.h"
#include "model/TCimHTTPInstance.h"

namespace NQELVSK20 {

bool TCimHTTPClass::IsMultiNode() const {
    const auto nameSpace = OwnNamespace("IsMultiNode");
    return nameSpace && nameSpace->getPegClientVec().size() > 1;
}

boost::shared_ptr<ICIMInstance> TCimHTTPClass::CreateInstance(TContext) {
    return boost::shared_ptr<ICIMInstance>(
        new TCimHTTPInstance(shared_from_this(), boost::shared_ptr<ICIMClass>()));
}

boost::shared_ptr<ICIMInstance> TCimHTTPClass::AllocateInstance(TContext context) {
    return CreateInstance(std::move(context));
}

void TCimHTTPClass::EnumerateInstances(const InstanceCallback& callback, bool deep, TContext context) {
    CollectInstances(deep);
    // A copy: the callback may look instances up, which enumerates anew, or take some out.
    const auto collected = instances_.InPathOrder();
    ForgetUnlessKept();
    for (const auto& instance : collected) {
        if (!callback(instance)) {
            return;
        }
    }
    if (!deep) {
        return;
    }
    const auto subclasses = subclasses_;
    for (const auto& subclass : subclasses) {
        subclass->EnumerateInstances(callback, deep, context);
    }
}

void TCimHTTPClass::CollectInstances(bool deep) {
    instances_.Clear();
    const auto nameSpace = OwnNamespace("EnumerateInstances");
    if (!nameSpace || IsRoot()) {  // no server has a class "<root>"
        return;
    }
    const std::vector<RemoteNode> nodes = RemoteNodes(*nameSpace);
    LogTrace("DEBUG: TCimHTTPClass:EI Total Clients " + std::to_string(nodes.size()) + "\n");
    for (const RemoteNode& node : nodes) {
        CollectFrom(node, nameSpace, deep);
    }
}

void TCimHTTPClass::CollectFrom(const RemoteNode& node, const boost::shared_ptr<TCimHTTPNamespace>& nameSpace,
                                bool deep) {
    const auto* const remoteName = nameSpace->getPegNSP();
    if (!PointerIsSet(remoteName != nullptr, "TCimHTTPClass::EnumerateInstances " + name_)) {
        return;
    }
    const Pegasus::Array<Pegasus::CIMInstance> received = node.client.EnumerateInstances(
        ToText(*remoteName), name_, timeout_, deep, true, false, false, Pegasus::CIMPropertyList());
    LogTrace("DEBUG: TCimHTTPClass:EnumerateInstances pegclient " + std::to_string(node.index) +
             " get instance of " + name_ + "\n" + name_ + " instance size " +
             std::to_string(received.size()) + "\n");
    RemoteInstanceReader reader(nameSpace, shared_from_this(), node);
    for (Pegasus::Uint32 i = 0; i < received.size(); ++i) {
        if (const auto instance = reader.Read(received[i])) {
            instances_.Insert(instance->GetReference(TContext()).GetPath(), instance);
        }
    }
}

// Instances hold their class: those of a class that left its namespace would hold it for good.
void TCimHTTPClass::ForgetUnlessKept() {
    if (!isInNamespace_) {
        ForgetInstances();
    }
}

void TCimHTTPClass::AddInstance(boost::shared_ptr<ICIMInstance> instance, TContext context) {
    if (PointerIsSet(instance != nullptr, "TCimHTTPClass::AddInstance " + name_)) {
        instances_.Insert(instance->GetReference(std::move(context)).GetPath(), instance);
        ForgetUnlessKept();
    }
}

void TCimHTTPClass::RemoveInstance(boost::shared_ptr<ICIMInstance> instance, TContext context) {
    if (PointerIsSet(instance != nullptr, "TCimHTTPClass::RemoveInstance " + name_)) {
        instances_.Erase(instance->GetReference(std::move(context)).GetPath());
    }
}

boost::shared_ptr<ICIMInstance> TCimHTTPClass::FindInstance(const TCIMReference& reference, TContext) {
    const std::string& path = reference.GetPath();
    if (auto collected = instances_.Find(path)) {
        return collected;
    }
    CollectInstances(false);
    auto found = instances_.Find(path);
    ForgetUnlessKept();
    return found;
}

}  // namespace NQELVSK20
