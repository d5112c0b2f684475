#include "tools/machine/NodeSelection.h"

#include <fmt/format.h>

#include <chrono>
#include <string>
#include <vector>

#include "cimhttp/PegClient.h"

namespace tool {

namespace {

using NQELVSK20::kHttpPort;
using NQELVSK20::kHttpsPort;

std::string whyUnreachable(const NodeProbe::Finding& finding) {
    const std::string& https = finding.https.reason;
    const std::string& http = finding.http.reason;
    if (!finding.nameFailure.empty()) {
        return "cannot connect: " + finding.nameFailure;
    }
    if (https == http) {
        return fmt::format("cannot connect: ports {} and {}: {}", kHttpsPort, kHttpPort, https);
    }
    std::string text = "cannot connect: ";
    if (!https.empty()) {
        text += fmt::format("port {}: {}{}", kHttpsPort, https, http.empty() ? "" : "; ");
    }
    return text + (http.empty() ? "" : fmt::format("port {}: {}", kHttpPort, http));
}

}  // namespace

void NodeSelection::leaveOutWithoutPassword() {
    for (const std::size_t node : std::vector<std::size_t>(machine_.asked())) {
        const Node& who = machine_.nodes()[node];
        if (who.lacksPassword) {
            listener_.leaveOut(node, "not asked: no password for user '" + who.user +
                                         "'; it comes from --password-file or CIMHTTP_PASSWORD");
        }
    }
}

void NodeSelection::leaveOutUnreachable() {
    const std::vector<std::size_t> nodes = machine_.asked();
    std::vector<NodeProbe::Target> targets;
    targets.reserve(nodes.size());
    for (const std::size_t node : nodes) {
        targets.push_back(
            {machine_.nodes()[node].host, !isTransport(Transport::kHttp), !isTransport(Transport::kHttps)});
    }
    const NodeProbe probe{std::chrono::seconds(options_.connectTimeoutS)};
    const std::vector<NodeProbe::Finding> findings = probe.probe(targets);
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        judge(nodes[i], findings[i], nodes.size() == 1);
    }
}

void NodeSelection::judge(std::size_t node, const NodeProbe::Finding& finding, bool isSingle) {
    if (finding.https.answers) {
        return;
    }
    const bool isUsable = finding.http.answers && machine_.nodes()[node].mayUseHttp;
    // The plug-in tries HTTPS first where it has the choice, and it has none for a single node only.
    if (isUsable && (!finding.https.isSilent || isSingle)) {
        isHttpTheOnlyWay_ = finding.https.isSilent;
        machine_.link(node).httpsFailure = finding.https.reason;
        return;
    }
    listener_.leaveOut(node, obstacle(node, finding));
}

std::string NodeSelection::obstacle(std::size_t node, const NodeProbe::Finding& finding) const {
    if (!finding.http.answers) {
        return whyUnreachable(finding);
    }
    if (!machine_.nodes()[node].mayUseHttp) {
        return "not asked: HTTPS: " + finding.https.reason +
               "; HTTP would show the password, --transport auto allows it";
    }
    return fmt::format("cannot connect: port {}: {}; --transport http asks this node alone", kHttpsPort,
                       finding.https.reason);
}

}  // namespace tool
