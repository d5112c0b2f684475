#pragma once

#include <string>
#include <utility>
#include <vector>

#include "cimhttp/TCimHTTPNamespace.h"
#include "connection/client/Nodes.h"

namespace NQELVSK20 {

/// What tests need of a namespace's private side.
class TCimHTTPNamespaceTestAccess {
public:
    /// The detection runs once a process; a test wants it anew, or out of its way.
    static void SetDetectionDone(bool done) { HypervisorDetectionDone() = done; }

    static bool IsDetectionDone() { return HypervisorDetectionDone(); }

    static void CheckIsESXi5(TCimHTTPNamespace& nameSpace) { nameSpace.CheckIsESXi5(); }

    static void ConnectNode(TCimHTTPNamespace& nameSpace, int node, const std::string& host) {
        nameSpace.connect(node, host, "", "");
    }
    static void ConnectNodeViaHttp(TCimHTTPNamespace& nameSpace, int node, const std::string& host,
                                   int port) {
        nameSpace.ConnectViaHttp(node, host, "", "", port);
    }
    static void ConnectNodeViaHttps(TCimHTTPNamespace& nameSpace, int node, const std::string& host,
                                    int port) {
        nameSpace.ConnectViaHttps(node, host, "", "", port);
    }

    static const std::vector<std::string>& Hosts(const TCimHTTPNamespace& nameSpace) {
        return nameSpace.SavedCredentials().hosts;
    }
    static const std::vector<std::string>& Users(const TCimHTTPNamespace& nameSpace) {
        return nameSpace.SavedCredentials().users;
    }
    static const std::vector<std::string>& Passwords(const TCimHTTPNamespace& nameSpace) {
        return nameSpace.SavedCredentials().passwords;
    }
    static unsigned int Port(const TCimHTTPNamespace& nameSpace) { return nameSpace.SavedCredentials().port; }
    static bool IsMultiNode(const TCimHTTPNamespace& nameSpace) { return nameSpace.IsMultiNode(); }

    static void AddClass(TCimHTTPNamespace& nameSpace, boost::shared_ptr<TCimHTTPClass> cimClass) {
        nameSpace.AddClass(std::move(cimClass));
    }
    static void RemoveClass(TCimHTTPNamespace& nameSpace, boost::shared_ptr<TCimHTTPClass> cimClass) {
        nameSpace.RemoveClass(std::move(cimClass));
    }
    static void AddQualifierDecl(TCimHTTPNamespace& nameSpace,
                                 boost::shared_ptr<TCimHTTPQualifierDecl> declaration) {
        nameSpace.AddQualifierDecl(std::move(declaration));
    }
};

}  // namespace NQELVSK20
