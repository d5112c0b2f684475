#include "tools/report/MachineReport.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <iomanip>
#include <sstream>
#include <utility>

#include "tools/common/Names.h"
#include "tools/report/ClassTree.h"
#include "tools/values/ValueText.h"

namespace tool {

namespace {

// Who reads the page later may be in another zone.
std::string utcNow() {
    const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::ostringstream text;
    text << std::put_time(std::gmtime(&now), "%Y-%m-%d %H:%M:%S UTC");
    return text.str();
}

std::string connectionOf(const Machine& machine, std::size_t node) {
    const Machine::Link& link = machine.link(node);
    const std::string failures = link.failures();
    if (link.reached) {
        return link.overHttps ? "HTTPS" : "HTTP, not encrypted";
    }
    return failures.empty() ? "left out" : "left out: " + failures;
}

std::string nameOfSystem(const InstanceView& system) {
    for (const char* property : {"ElementName", "Name"}) {
        const auto* value = system.value(property);
        if (value != nullptr && !value->IsNull() && !plainText(*value).empty()) {
            return plainText(*value);
        }
    }
    return system.path;
}

std::vector<std::string> systemsIn(const std::vector<ClassBranch>& branches, const std::string& node,
                                   bool areSystems) {
    std::vector<std::string> names;
    for (const ClassBranch& branch : branches) {
        const bool isSystem = areSystems || sameName(branch.name, "CIM_ComputerSystem");
        for (const InstanceView& instance : branch.instances) {
            if (isSystem && instance.node == node) {
                names.push_back(nameOfSystem(instance));
            }
        }
        const std::vector<std::string> below = systemsIn(branch.subclasses, node, isSystem);
        names.insert(names.end(), below.begin(), below.end());
    }
    return names;
}

std::vector<MachineReport::Node> nodesOf(const Machine& machine, const std::vector<ClassBranch>& classes) {
    std::vector<MachineReport::Node> nodes;
    for (std::size_t i = 0; i < machine.nodes().size(); ++i) {
        const std::vector<std::size_t>& asked = machine.asked();
        MachineReport::Node node;
        node.number = std::to_string(i + 1);
        node.host = machine.nodes()[i].host;
        node.connection = connectionOf(machine, i);
        node.isAsked = std::find(asked.begin(), asked.end(), i) != asked.end();
        node.systems = systemsIn(classes, node.number, false);
        nodes.push_back(std::move(node));
    }
    return nodes;
}

}  // namespace

MachineReport MachineReport::of(Session& session, SchemaCache& schemas, Progress& progress) {
    HealthReport health = HealthReport::of(session, schemas, progress);
    std::vector<ClassBranch> classes = ClassTree(session, schemas, progress).read();
    std::vector<Node> nodes = nodesOf(session.machine(), classes);
    return {session.nameSpaceName(), utcNow(),           std::move(nodes),
            std::move(health),       std::move(classes), session.failures()};
}

}  // namespace tool
