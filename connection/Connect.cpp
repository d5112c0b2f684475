// How a namespace connects to its nodes, and lets go of them.

#include <algorithm>
#include <utility>

#include "connection/Log.h"
#include "connection/PegClient.h"
#include "connection/PegText.h"
#include "connection/Ports.h"
#include "connection/Refuse.h"
#include "connection/TCimHTTPNamespace.h"

namespace NQELVSK20 {

void TCimHTTPNamespace::connect(std::string host, std::string user, std::string password) {
    LogTrace("Entering TCimHTTPNamespace::connect - Connect to single node cimom via http or https.");
    if (!connected_) {
        SaveConnectAuthInfo(host, user, password, kHttpPort);
        connect(0, host, user, password);
        CheckIsESXi5();
        connected_ = true;
    }
    LogTrace("Exiting TCimHTTPNamespace::connect - Connect to single node cimom via http or https.");
}

void TCimHTTPNamespace::connect(std::vector<std::string> hosts, std::vector<std::string> users,
                                std::vector<std::string> passwords) {
    LogTrace("Entering TCimHTTPNamespace::connect - Connect to multinode cimom via http or https");
    if (!connected_) {
        if (hosts.empty() || hosts.size() != users.size() || users.size() != passwords.size()) {
            Refuse(eVSKRemoteFailure, kLogTrace, "The input auth info is not correct!");
        }
        SaveConnectAuthInfo(hosts, users, passwords);
        if (hosts.size() > 1) {
            multiNode_ = true;
        }
        for (std::size_t i = 0; i < hosts.size(); ++i) {
            connect(static_cast<int>(i), hosts[i], users[i], passwords[i]);
        }
        connected_ = true;
    }
    LogTrace("Exiting TCimHTTPNamespace::connect - Connect to multinode cimom via http or https");
}

void TCimHTTPNamespace::connect(int nodeIndex, std::string host, std::string user, std::string password) {
    LogTrace("Entering TCimHTTPNamespace::connect - Connect to cimom via http or https");
    CreateNodeIfMissing(nodeIndex);
    if (!HasNode(nodeIndex)) {
        return;
    }
    try {
        NodeClient(nodeIndex).Connect(host, user, password);
    } catch (const Pegasus::Exception& error) {
        LogTrace("TCimHTTPNamespace::connect - Connect to cimom via http or https failed, error:" +
                 ToText(error));
    }
}

void TCimHTTPNamespace::CreateNodeIfMissing(int nodeIndex) {
    // Node 0 comes from Init alone: without it the comparison runs against the largest number there is.
    if (static_cast<std::size_t>(nodeIndex) > nodes_.size() - 1) {
        ownedClients_.emplace_back(new PegClient);
        AppendNode(nodeIndex, ownedClients_.back().get());
    }
}

bool TCimHTTPNamespace::HasNode(int nodeIndex) const {
    return static_cast<std::size_t>(nodeIndex) < nodes_.size();
}

PegClient& TCimHTTPNamespace::NodeClient(int nodeIndex) const {
    return *nodes_[static_cast<std::size_t>(nodeIndex)].begin()->second;
}

void TCimHTTPNamespace::ConnectViaHttp(std::string host, std::string user, std::string password, int port) {
    LogTrace("Entering TCimHTTPNamespace::ConnectViaHttp");
    if (!connected_) {
        SaveConnectAuthInfo(host, user, password, port);
        ConnectViaHttp(0, host, user, password, kHttpPort);
        connected_ = true;
    }
    LogTrace("Exiting TCimHTTPNamespace::ConnectViaHttp");
}

void TCimHTTPNamespace::ConnectViaHttps(std::string host, std::string user, std::string password, int port) {
    LogTrace("Entering TCimHTTPNamespace::ConnectViaHttps");
    if (!connected_) {
        SaveConnectAuthInfo(host, user, password, port);
        ConnectViaHttps(0, host, user, password, kHttpsPort);
        connected_ = true;
        CheckIsESXi5();
    }
    LogTrace("Exiting TCimHTTPNamespace::ConnectViaHttps");
}

void TCimHTTPNamespace::ConnectViaHttp(int nodeIndex, std::string host, std::string user,
                                       std::string password, int port) {
    LogTrace("Entering TCimHTTPNamespace::ConnectViaHttp -With Node Num");
    if (HasNode(nodeIndex)) {
        NodeClient(nodeIndex).HTTPConnect(host, user, password, port);
    }
    LogTrace("Exiting TCimHTTPNamespace::ConnectViaHttp -With Node Num");
}

void TCimHTTPNamespace::ConnectViaHttps(int nodeIndex, std::string host, std::string user,
                                        std::string password, int port) {
    LogTrace("Entering TCimHTTPNamespace::ConnectViaHttps - With Node Num");
    if (HasNode(nodeIndex)) {
        NodeClient(nodeIndex).HTTPSConnect(host, user, password, port);
    }
    LogTrace("Exiting TCimHTTPNamespace::ConnectViaHttps - With Node Num");
}

void TCimHTTPNamespace::SaveConnectAuthInfo(std::string host, std::string user, std::string password,
                                            int port) {
    hosts_ = {std::move(host)};
    users_ = {std::move(user)};
    passwords_ = {std::move(password)};
    port_ = static_cast<unsigned int>(port);
}

void TCimHTTPNamespace::SaveConnectAuthInfo(std::vector<std::string> hosts, std::vector<std::string> users,
                                            std::vector<std::string> passwords) {
    hosts_ = std::move(hosts);
    users_ = std::move(users);
    passwords_ = std::move(passwords);
}

void TCimHTTPNamespace::setTimeout(unsigned int milliseconds) {
    for (const auto& node : nodes_) {
        node.begin()->second->GetCIMClient()->setTimeout(milliseconds);
    }
}

void TCimHTTPNamespace::disconnect() {
    if (!connected_) {
        return;
    }
    connected_ = false;
    if (firstClient_ != nullptr) {
        firstClient_->Disconnect();
    }
    for (const auto& client : ownedClients_) {
        client->Disconnect();
    }
    ownedClients_.clear();
    if (nodes_.size() > 1) {
        nodes_.resize(1);
    }
    ForgetInstances();
}

void TCimHTTPNamespace::DisconnectAllBut(const NodeClients& kept) {
    for (const auto& node : nodes_) {
        PegClient* const client = node.begin()->second;
        const bool isKept = std::any_of(kept.begin(), kept.end(),
                                        [&](const auto& other) { return other.begin()->second == client; });
        if (!isKept) {
            client->Disconnect();
        }
    }
}

}  // namespace NQELVSK20
