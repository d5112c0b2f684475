// The program against servers that fail once: what the plug-in overcomes by its second attempt is no failure.

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>
#include <thread>

#include "tests/support/Declarations.h"
#include "tests/support/TestMachine.h"
#include "tests/tools/support/Program.h"

namespace tool {

namespace {

using namespace NQELVSK20;
using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

cimom::Fault brokenOnce(const std::string& operation, const std::string& className = "") {
    cimom::Fault fault;
    fault.kind = cimom::Fault::Kind::CloseBeforeAnswer;
    fault.operation = operation;
    fault.className = className;
    fault.times = 1;
    return fault;
}

std::vector<std::string> asking(const TestMachine& machine, std::vector<std::string> rest) {
    for (const std::string& host : machine.Hosts()) {
        rest.insert(rest.end(), {"--node", host});
    }
    return rest;
}

void waitForRequest(TestMachine& machine, const std::string& operation) {
    const auto isThere = [&] {
        const auto requests = machine.Server().requests();
        return std::any_of(requests.begin(), requests.end(),
                           [&](const auto& request) { return request.operation == operation; });
    };
    for (int i = 0; i < 3000 && !isThere(); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

std::string referenceXml(const std::string& name, const std::string& className, const std::string& key) {
    return "<PROPERTY.REFERENCE NAME=\"" + name + "\" REFERENCECLASS=\"" + className + "\">" +
           "<QUALIFIER NAME=\"Key\" TYPE=\"boolean\"><VALUE>TRUE</VALUE></QUALIFIER>" +
           (key.empty()
                ? ""
                : "<VALUE.REFERENCE><LOCALINSTANCEPATH><LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/>"
                  "<NAMESPACE NAME=\"other\"/></LOCALNAMESPACEPATH><INSTANCENAME CLASSNAME=\"" +
                      className + "\"><KEYBINDING NAME=\"Name\"><KEYVALUE VALUETYPE=\"string\">" + key +
                      "</KEYVALUE></KEYBINDING></INSTANCENAME></LOCALINSTANCEPATH></VALUE.REFERENCE>") +
           "</PROPERTY.REFERENCE>";
}

}  // namespace

TEST(Retries, AMethodThatIsAnsweredAtTheSecondAttemptIsAnswered) {
    TestMachine machine(1);
    machine.Server().inject(brokenOnce("RequestStateChange"));
    const Outcome outcome =
        run(asking(machine, {"invoke",
                             "OMC_UnitaryComputerSystem.CreationClassName=OMC_UnitaryComputerSystem,"
                             "Name=node-0.machine.example",
                             "RequestStateChange", "RequestedState=3"}));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, StartsWith("return value  0 (Completed with No Error)\n"));
    EXPECT_THAT(outcome.err,
                AllOf(StartsWith("cimhttp: " + machine.Host(0) + ":5989: calling RequestStateChange: "),
                      EndsWith("; the second attempt was answered, and the method may have run "
                               "twice\n")));
}

TEST(Retries, AMethodThatFailsTwiceFails) {
    TestMachine machine(1);
    cimom::Fault fault = brokenOnce("RequestStateChange");
    fault.times = 2;
    machine.Server().inject(fault);
    const Outcome outcome =
        run(asking(machine, {"invoke",
                             "OMC_UnitaryComputerSystem.CreationClassName=OMC_UnitaryComputerSystem,"
                             "Name=node-0.machine.example",
                             "RequestStateChange", "RequestedState=3"}));
    EXPECT_EQ(outcome.status, 4);
    EXPECT_EQ(outcome.out, "");
    ASSERT_EQ(linesOf(outcome.err).size(), 1U) << outcome.err;
    EXPECT_THAT(outcome.err, StartsWith("cimhttp: " + machine.Host(0) + ":5989: calling RequestStateChange"));
}

TEST(Retries, ANodeThatAnswersAtTheSecondAttemptDoesNotFailTheCommand) {
    TestMachine machine(2);
    cimom::Fault fault = brokenOnce("EnumerateInstances", "OMC_UnitaryComputerSystem");
    fault.address = machine.Host(1);
    machine.Server().inject(fault);
    const Outcome outcome =
        run(asking(machine, {"--format", "json", "instances", "OMC_UnitaryComputerSystem"}));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(nlohmann::json::parse(outcome.out).size(), 2U);
    EXPECT_THAT(outcome.err, AllOf(StartsWith("cimhttp: node 2 (" + machine.Host(1) +
                                              ":5989): instances of OMC_UnitaryComputerSystem: "),
                                   EndsWith("; the second attempt was answered\n")));
}

TEST(Retries, NodesThatFailOnceEachWhileAClassIsBuiltAreToldApart) {
    TestMachine machine(3);
    for (const std::size_t node : {std::size_t{1}, std::size_t{2}}) {
        cimom::Fault fault = brokenOnce("GetClass", "OMC_UnitaryComputerSystem");
        fault.address = machine.Host(node);
        machine.Server().inject(fault);
    }
    const Outcome outcome =
        run(asking(machine, {"--format", "json", "instances", "OMC_UnitaryComputerSystem"}));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(nlohmann::json::parse(outcome.out).size(), 3U);
    const auto lines = linesOf(outcome.err);
    ASSERT_EQ(lines.size(), 2U) << outcome.err;
    for (std::size_t node = 1; node < 3; ++node) {
        EXPECT_THAT(lines[node - 1],
                    AllOf(StartsWith("cimhttp: node " + std::to_string(node + 1) + " (" + machine.Host(node) +
                                     ":5989): definition of class OMC_UnitaryComputerSystem: "),
                          EndsWith("; the second attempt was answered")));
    }
}

TEST(Retries, AConnectionThatComesBackOverHttpIsTold) {
    TestMachine machine(1);
    machine.Server().inject(brokenOnce("EnumerateClassNames"));
    support::Process process(asking(machine, {CIMHTTP_PROGRAM, "classes"}));
    waitForRequest(machine, "EnumerateClassNames");
    machine.Server().close(machine.Host(0), 5989);
    const Outcome outcome = process.wait();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, HasSubstr("CIM_ManagedElement\n"));
    EXPECT_THAT(outcome.err, HasSubstr("cimhttp: " + machine.Host(0) +
                                       ":5988: reconnected over HTTP, now without encryption: "));
}

TEST(References, AClassThatOnlyAReferenceNamesMayBeUnknown) {
    TestMachine machine(1);
    machine.Repository(0).addDeclarations(
        "root/cimv2",
        Declarations({ClassXml("X_Link", "", referenceXml("There", "X_Elsewhere", "")),
                      InstanceXml("X_Link", referenceXml("There", "X_Elsewhere", "1"))}),
        "test");
    const Outcome outcome = run(asking(machine, {"--format", "json", "instances", "X_Link"}));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(nlohmann::json::parse(outcome.out).size(), 1U);
    EXPECT_THAT(outcome.err, AllOf(StartsWith("cimhttp: " + machine.Host(0) +
                                              ":5989: definition of class X_Elsewhere: CIM error: "),
                                   EndsWith("; only references name it\n")));
}

}  // namespace tool
