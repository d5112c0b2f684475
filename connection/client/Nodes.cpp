#include "connection/client/Nodes.h"

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMPropertyList.h>

#include <algorithm>
#include <atomic>
#include <locale>
#include <sstream>

#include "cimhttp/PegClient.h"
#include "connection/client/Waiting.h"
#include "provider/contract/HostReport.h"
#include "provider/contract/PegText.h"
#include "splib/SPLibrary.h"

namespace NQELVSK20 {

namespace {

struct KeptClient {
    PegClient client;
    KeptClient* next = nullptr;
};

// The clients of node 0, which outlive their namespaces: all of them stay reachable, so that a leak checker
// tells them from a loss. Namespaces of different threads may get here at once, and the plug-in takes no
// lock.
std::atomic<KeptClient*> keptClients{nullptr};

PegClient* MakeKeptClient() {
    auto* const kept = new KeptClient;
    kept->next = keptClients.load();
    while (!keptClients.compare_exchange_weak(kept->next, kept)) {
    }
    return &kept->client;
}

std::string KeyOf(std::size_t index) {
    return std::to_string(SPLibrary::GetBMCMapping(static_cast<int>(index)) + 1);
}

// The major number of a version such as "5.0.0 build-469512"; 0 when the text does not begin with a number.
int MajorVersion(const Pegasus::CIMInstance& identity) {
    const Pegasus::CIMConstProperty property =
        identity.getProperty(identity.findProperty(Pegasus::CIMName("VersionString")));
    std::istringstream text(ToText(property.getValue().toString()));
    text.imbue(std::locale::classic());  // the host's own may read "4.1.0" as one grouped number
    int major = 0;
    text >> major;
    return major;
}

}  // namespace

bool& HypervisorDetectionDone() {
    static bool done = false;
    return done;
}

void Nodes::AppendFirst() {
    if (first_ == nullptr) {
        first_ = MakeKeptClient();
        first_->SetObserver(observer_);
    }
    clients_.push_back({{KeyOf(0), first_}});
}

void Nodes::AppendIfMissing(std::size_t index) {
    if (!clients_.empty() && index >= clients_.size()) {
        owned_.emplace_back(new PegClient(index));
        owned_.back()->SetObserver(observer_);
        clients_.push_back({{KeyOf(index), owned_.back().get()}});
    }
}

PegClient* Nodes::Client(std::size_t index) const {
    return index < clients_.size() ? clients_[index].begin()->second : nullptr;
}

std::vector<RemoteNode> Nodes::Connected() const {
    std::vector<RemoteNode> nodes;
    for (std::size_t i = 0; i < clients_.size(); ++i) {
        nodes.push_back({i, clients_[i].begin()->first, *clients_[i].begin()->second});
    }
    return nodes;
}

void Nodes::DetectHypervisor() {
    if (HypervisorDetectionDone()) {
        return;
    }
    HypervisorDetectionDone() = true;
    if (first_ == nullptr) {
        return;
    }
    const Pegasus::Array<Pegasus::CIMInstance> identities =
        first_->EnumerateInstances("root/cimv2", "VMware_HypervisorSoftwareIdentity", kDetectionTimeoutMs,
                                   true, true, false, false, Pegasus::CIMPropertyList());
    if (identities.size() == 0) {
        return;
    }
    hypervisor_.isEsxi = true;
    try {
        if (MajorVersion(identities[0]) >= 5) {
            hypervisor_.isEsxi5 = true;
        }
    } catch (const Pegasus::Exception&) {
        LogTrace("TCimHTTPNamespace::Pegasus Client connect VMware_HypervisorSoftwareIdentity");
    }
}

void Nodes::Disconnect() {
    for (const auto& node : clients_) {
        node.begin()->second->Disconnect();
    }
    owned_.clear();
    if (clients_.size() > 1) {
        clients_.resize(1);
    }
}

void Nodes::DisconnectAllBut(const Nodes& kept) {
    for (const auto& node : clients_) {
        PegClient* const client = node.begin()->second;
        const bool isKept = std::any_of(kept.clients_.begin(), kept.clients_.end(),
                                        [&](const auto& other) { return other.begin()->second == client; });
        if (!isKept) {
            client->Disconnect();
            client->SetObserver(nullptr);
        }
    }
}

void Nodes::Observe(ClientObserver* observer) {
    observer_ = observer;
    for (const auto& node : clients_) {
        node.begin()->second->SetObserver(observer);
    }
}

void Nodes::SetTimeout(unsigned int milliseconds) {
    for (const auto& node : clients_) {
        node.begin()->second->GetCIMClient()->setTimeout(milliseconds);
    }
}

}  // namespace NQELVSK20
