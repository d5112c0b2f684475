// What is not well, as a person and as a monitoring program ask for it.

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "tests/support/TestMachine.h"
#include "tests/tools/support/Program.h"

namespace tool {

namespace {

using nlohmann::json;
using NQELVSK20::TestMachine;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

// A machine of one node with the classes of the sample machine, and what is declared.
class OneNode {
public:
    explicit OneNode(const std::string& instances) : machine_(1) {
        machine_.Repository(0).addDeclarations(
            "root/test",
            "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><DECLARATION><DECLGROUP>" + kClasses + instances +
                "</DECLGROUP></DECLARATION></CIM>",
            "test.xml");
    }

    Outcome ask(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"--node", machine_.Host(0), "--namespace", "root/test"});
        return run(std::move(arguments));
    }

private:
    static const std::string kClasses;
    TestMachine machine_;
};

std::string classNamed(const std::string& name, const std::string& superclass, const std::string& members) {
    return "<VALUE.OBJECT><CLASS NAME=\"" + name + "\"" +
           (superclass.empty() ? "" : " SUPERCLASS=\"" + superclass + "\"") + ">" + members +
           "</CLASS></VALUE.OBJECT>";
}

const std::string OneNode::kClasses =
    "<QUALIFIER.DECLARATION NAME=\"Key\" TYPE=\"boolean\" ISARRAY=\"false\"><SCOPE PROPERTY=\"true\"/>"
    "<VALUE>FALSE</VALUE></QUALIFIER.DECLARATION>" +
    classNamed("CIM_ManagedElement", "", "<PROPERTY NAME=\"ElementName\" TYPE=\"string\"/>") +
    classNamed("CIM_ManagedSystemElement", "CIM_ManagedElement",
               "<PROPERTY NAME=\"HealthState\" TYPE=\"uint16\"/>"
               "<PROPERTY.ARRAY NAME=\"OperationalStatus\" TYPE=\"uint16\"/>") +
    classNamed("TST_Element", "CIM_ManagedSystemElement",
               "<PROPERTY NAME=\"Name\" TYPE=\"string\"><QUALIFIER NAME=\"Key\" TYPE=\"boolean\"><VALUE>TRUE"
               "</VALUE></QUALIFIER></PROPERTY>") +
    classNamed("TST_Fan", "TST_Element", "");

std::string instanceOf(const std::string& className, const std::string& name, int healthState, int status) {
    return "<VALUE.OBJECT><INSTANCE CLASSNAME=\"" + className +
           "\"><PROPERTY NAME=\"Name\" TYPE=\"string\"><VALUE>" + name +
           "</VALUE></PROPERTY><PROPERTY NAME=\"HealthState\" TYPE=\"uint16\"><VALUE>" +
           std::to_string(healthState) +
           "</VALUE></PROPERTY><PROPERTY.ARRAY NAME=\"OperationalStatus\" "
           "TYPE=\"uint16\"><VALUE.ARRAY><VALUE>" +
           std::to_string(status) + "</VALUE></VALUE.ARRAY></PROPERTY.ARRAY></INSTANCE></VALUE.OBJECT>";
}

}  // namespace

TEST(HealthCommand, ShowsWhatIsNotWellOnOneScreen) {
    const Outcome outcome = run({"health"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(
        outcome.out,
        "5 of 53 elements on 3 nodes are not well, 13 tell no state\n"
        "\n"
        "Node  State             Element\n"
        "1     Degraded/Warning  DIMM 4 Temp     91 °C > 85 upper non-critical\n"
        "3     Degraded/Warning  CPU 1 Temp      89 °C > 88 upper non-critical\n"
        "      2024-09-12 07:58:20  Temperature of CPU 1 went above 88 degrees\n"
        "3     Degraded/Warning  Coolant Temp    -4 °C, Lower Non-Critical\n"
        "3     Degraded          Cooling loop 1\n"
        "3     Degraded/Warning  Node 2          A pump runs below its nominal speed\n"
        "\n"
        "Node  Also in the logs\n"
        "1     2024-09-11 23:59:59  Major             Memory module 4 corrected 1000 errors within 24 hours\n"
        "2     2024-09-09 17:45:03  Degraded/Warning  Fan 2 runs slowly\n");
}

TEST(HealthCommand, ShowsTheRestOnRequest) {
    const Outcome outcome = run({"health", "--all"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, HasSubstr("\n2     OK                Fan 1 Tach          7920 RPM\n"));
    EXPECT_THAT(outcome.out, HasSubstr("\n1     Unknown           VRM Temp            "));
    EXPECT_EQ(linesOf(outcome.out).size(), 53U + 8U);
}

TEST(HealthCommand, ShowsAnElementOnceAsItsOwnClassTellsIt) {
    const json health = json::parse(run({"health", "--all", "--format", "json"}).out);
    std::set<std::string> names;
    for (const json& element : health["found"]) {
        names.insert(std::to_string(element["node"].get<int>()) + element["name"].get<std::string>());
    }
    EXPECT_EQ(names.size(), 53U);
    EXPECT_EQ(health["elements"], 53);
    EXPECT_EQ(health["notWell"], 5);
    EXPECT_EQ(health["found"][0]["class"], "OMC_NumericSensor");
    EXPECT_EQ(health["found"][0]["reading"]["value"], 91);
    // The first node knows no such class.
    EXPECT_EQ(health["found"][3]["class"], "CIM_LogicalDevice");
    EXPECT_EQ(health["found"][3]["name"], "Cooling loop 1");
}

TEST(HealthCommand, FitsATerminal) {
    const Outcome outcome = Program({"health"}).runOnTerminal();
    EXPECT_THAT(outcome.out, HasSubstr("Memory module 4 corrected 1000 err…\r\n"));
}

TEST(HealthCommand, SaysInALineThatAllIsWell) {
    const OneNode machine(instanceOf("TST_Element", "board", 5, 2) + instanceOf("TST_Fan", "fan", 0, 2));
    const Outcome outcome = machine.ask({"health"});
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "2 elements on 1 node: all is well\n");
    const Outcome monitored = machine.ask({"health", "--nagios"});
    EXPECT_EQ(monitored.status, 0);
    EXPECT_EQ(monitored.out, "CIMHTTP OK - 2 elements on 1 node: all is well\n");
}

TEST(HealthCommand, TakesTheWorseOfHealthAndStatus) {
    const OneNode machine(instanceOf("TST_Element", "board", 5, 6) + instanceOf("TST_Fan", "fan", 25, 2));
    const Outcome outcome = machine.ask({"health"});
    EXPECT_THAT(linesOf(outcome.out),
                ElementsAre("2 of 2 elements on 1 node are not well", "", "Node  State  Element",
                            "1     25     fan", "1     6      board"));
    EXPECT_EQ(machine.ask({"health", "--nagios"}).status, 2);
}

TEST(HealthCommand, AMachineWithoutElementsTellsNothing) {
    const OneNode machine("");
    const Outcome outcome = machine.ask({"health"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "0 elements on 1 node: none tells its state\n");
    EXPECT_EQ(machine.ask({"health", "--nagios"}).status, 3);
}

TEST(HealthCommand, EndsOnAClassTreeThatGoesInACircle) {
    TestMachine machine(1);
    cimom::Fault circle;
    circle.kind = cimom::Fault::Kind::RawText;
    circle.operation = "EnumerateClassNames";
    circle.text = "\"CIM_LogicalElement\"";
    circle.instead = "\"CIM_ManagedSystemElement\"";
    machine.Server().inject(circle);
    const Outcome outcome = run({"--node", machine.Host(0), "health"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.signal, 0);
    EXPECT_EQ(outcome.out, "3 elements on 1 node: none tells its state\n");
}

TEST(HealthCommand, EndsWhenThereAreNoSuchClasses) {
    TestMachine::Options options;
    options.sampleData = false;
    TestMachine machine(options);
    machine.Repository(0).addDeclarations(
        "root/cimv2", "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><DECLARATION/></CIM>", "empty.xml");
    const Outcome outcome = run({"--node", machine.Host(0), "health"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, HasSubstr("definition of class CIM_ManagedSystemElement"));
}

TEST(Monitoring, TellsALineAndAStatus) {
    const Outcome outcome = run({"health", "--nagios"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "");
    ASSERT_EQ(linesOf(outcome.out).size(), 1U);
    EXPECT_THAT(outcome.out,
                StartsWith("CIMHTTP WARNING - 5 of 53 elements on 3 nodes are not well, 13 tell no "
                           "state: DIMM 4 Temp Degraded/Warning, "));
    EXPECT_THAT(outcome.out, HasSubstr(" '3/CPU 1 Temp'=89;88;95 "));
    EXPECT_THAT(outcome.out, HasSubstr(" '1/Inlet Humidity'=41.5%;80;90 "));
    EXPECT_THAT(outcome.out, HasSubstr(" '1/Fan 1 Tach'=8550 "));
}

TEST(Monitoring, AMachineThatCannotBeAskedIsUnknown) {
    const Outcome outcome = run({"--node", TestMachine::AddressOf(6), "health", "--nagios"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(outcome.out, StartsWith("CIMHTTP UNKNOWN - "));
    EXPECT_THAT(outcome.out, HasSubstr(TestMachine::AddressOf(6)));
    EXPECT_EQ(linesOf(outcome.out).size(), 1U);
}

TEST(Monitoring, WrongUsageIsUnknownToo) {
    const Outcome outcome = run({"health", "--nagios", "--al"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(outcome.out, StartsWith("CIMHTTP UNKNOWN - unknown option --al; did you mean --all?"));
    EXPECT_EQ(run({"health", "--nagios", "--help"}).status, 0);
}

TEST(Monitoring, ANodeThatDoesNotAnswerLeavesNothingWell) {
    const OneNode machine(instanceOf("TST_Element", "board", 5, 2));
    const Outcome outcome = machine.ask({"--node", TestMachine::AddressOf(6), "health", "--nagios"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(outcome.out, HasSubstr("all is well; not every node answered"));
}

}  // namespace tool
