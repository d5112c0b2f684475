// get and invoke of instances whose InstanceID the plug-in marks: with the paths that `names` and `instances`
// print.

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "tests/support/Declarations.h"
#include "tests/support/TestMachine.h"
#include "tests/tools/support/Program.h"

namespace tool {

namespace {

using namespace NQELVSK20;
using nlohmann::json;
using ::testing::Contains;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;

/// A machine with switches: instances of X_Switch with these InstanceIDs on every node.
class MarkedInstances : public ::testing::Test {
protected:
    void build(std::size_t nodes, const std::vector<std::string>& ids, const std::string& nameSpace = "") {
        machine_.emplace(nodes);
        nameSpace_ = nameSpace.empty() ? "root/cimv2" : nameSpace;
        for (std::size_t node = 0; node < nodes; ++node) {
            cimom::Repository& repository = machine_->Repository(node);
            if (!nameSpace.empty()) {
                repository.addSample(nameSpace, static_cast<unsigned>(node));
            }
            declare(repository, ids);
        }
    }

    Outcome ask(std::vector<std::string> arguments) const {
        for (const std::string& host : machine_->Hosts()) {
            arguments.insert(arguments.end(), {"--node", host});
        }
        arguments.insert(arguments.end(), {"--namespace", nameSpace_});
        return run(arguments);
    }

    /// The paths of the switches as the instances command prints them.
    std::vector<std::string> shownPaths() const {
        std::vector<std::string> paths;
        for (const json& instance : json::parse(ask({"--format", "json", "instances", "X_Switch"}).out)) {
            paths.push_back(instance["path"]);
        }
        return paths;
    }

    std::vector<std::string> names() const { return linesOf(ask({"names", "X_Switch"}).out); }

    /// The InstanceID of the instance that is found for a path; the notice when there is none.
    std::string idFoundFor(const std::string& path) const {
        const Outcome outcome = ask({"--format", "json", "get", path});
        return outcome.status == 0 ? json::parse(outcome.out)["properties"]["InstanceID"].get<std::string>()
                                   : outcome.err;
    }

    Outcome switchOff(const std::string& path) const {
        return ask({"invoke", path, "RequestStateChange", "RequestedState=3"});
    }

    static std::string pathOf(const std::string& id) { return "X_Switch.InstanceID=\"" + id + "\""; }

    std::optional<TestMachine> machine_;

private:
    void declare(cimom::Repository& repository, const std::vector<std::string>& ids) const {
        const std::string cimClass =
            ClassXml("X_Switch", "CIM_EnabledLogicalElement", KeyXml("InstanceID", "string"));
        repository.addDeclarations(nameSpace_, Declarations({cimClass}), "test");
        for (const std::string& id : ids) {
            const std::string properties =
                PropertyXml("InstanceID", "string", id.c_str()) + PropertyXml("EnabledState", "uint16", "2");
            repository.addDeclarations(nameSpace_, Declarations({InstanceXml("X_Switch", properties)}),
                                       "test");
        }
    }

    std::string nameSpace_;
};

}  // namespace

TEST_F(MarkedInstances, AreFoundByThePathsThatTheCommandsPrint) {
    build(2, {"a", "b"});
    const std::vector<std::string> shown = shownPaths();
    ASSERT_EQ(shown.size(), 4U);
    for (const std::string& path : shown) {
        EXPECT_EQ(pathOf(idFoundFor(path)), path);
    }
    ASSERT_EQ(names().size(), 2U);
    EXPECT_EQ(idFoundFor(names().front()), "Node1:a");
    EXPECT_THAT(idFoundFor(pathOf("c")), HasSubstr("there is no instance " + pathOf("c")));
}

TEST_F(MarkedInstances, OfAnotherNodeOnlyAreFoundByTheServersPathToo) {
    build(2, {"a"});
    machine_->Repository(1).addDeclarations(
        "root/cimv2", Declarations({InstanceXml("X_Switch", PropertyXml("InstanceID", "string", "z"))}),
        "test");
    EXPECT_EQ(idFoundFor(pathOf("z")), "Node2:z");
}

TEST_F(MarkedInstances, AreFoundInOneEnumeration) {
    build(2, {"a"});
    ASSERT_EQ(idFoundFor(names().front()), "Node1:a");
    machine_->ClearRequests();
    idFoundFor(names().front());
    const std::vector<std::string> requests = machine_->Requests();
    EXPECT_EQ(std::count(requests.begin(), requests.end(), "0 EnumerateInstances X_Switch"), 1);
}

TEST_F(MarkedInstances, AreFoundExactlyBeforeAnyOther) {
    build(2, {"a", "Node1:a"});
    EXPECT_EQ(idFoundFor(pathOf("Node1:a")), "Node1:a");
    EXPECT_EQ(idFoundFor(pathOf("Node1:Node1:a")), "Node1:Node1:a");
}

TEST_F(MarkedInstances, OfASingleNodeAreTheEmptyOnes) {
    build(1, {"", "Node1:a"});
    EXPECT_EQ(idFoundFor(pathOf("")), "Node1:");
    EXPECT_EQ(idFoundFor(pathOf("Node1:")), "Node1:");
    EXPECT_EQ(idFoundFor(pathOf("Node1:a")), "Node1:a");
    for (const char* id : {"", "Node1:", "Node1:a"}) {
        EXPECT_EQ(switchOff(pathOf(id)).status, 0) << id;
    }
}

TEST_F(MarkedInstances, OfASingleControllerCarryItsNumber) {
    build(1, {"a"}, "root/vqm2");
    ASSERT_EQ(shownPaths(), std::vector<std::string>{pathOf("Node3:a")});
    EXPECT_EQ(idFoundFor(names().front()), "Node3:a");
    EXPECT_EQ(switchOff(pathOf("Node3:a")).status, 0);
    EXPECT_EQ(switchOff(pathOf("a")).status, 0);
}

TEST_F(MarkedInstances, RunMethodsByThePathsThatTheCommandsPrint) {
    build(2, {"a"});
    for (const std::string& path : {shownPaths().front(), names().front()}) {
        const Outcome outcome = switchOff(path);
        EXPECT_EQ(outcome.status, 0) << path << ": " << outcome.err;
        EXPECT_EQ(outcome.err, "");
    }
}

TEST_F(MarkedInstances, OfAnotherNodeRunNoMethod) {
    build(2, {"a"});
    const Outcome outcome = switchOff(shownPaths().back());
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "cimhttp: methods go to the first node only: this is an instance of node 2 (" +
                               machine_->Host(1) + ":5989)\n");
}

TEST_F(MarkedInstances, RunMethodsByTheServersPathWhereThereIsOne) {
    build(2, {"Node2:a"});
    EXPECT_EQ(switchOff(pathOf("Node2:a")).status, 0);
    EXPECT_EQ(switchOff(pathOf("Node1:Node2:a")).status, 0);
}

TEST_F(MarkedInstances, RunNoMethodOnAGuess) {
    build(2, {"a"});
    cimom::Fault fault;
    fault.kind = cimom::Fault::Kind::CimError;
    fault.operation = "EnumerateInstanceNames";
    fault.code = 7;
    fault.text = "not here";
    machine_->Server().inject(fault);
    const Outcome outcome = switchOff(pathOf("Node1:a"));
    EXPECT_EQ(outcome.status, 4);
    EXPECT_THAT(machine_->Requests(), Not(Contains(HasSubstr("RequestStateChange"))));
    EXPECT_THAT(outcome.err, EndsWith(": instance names of X_Switch: CIM error: not here\n"));
    EXPECT_EQ(switchOff(pathOf("a")).status, 0);
}

}  // namespace tool
