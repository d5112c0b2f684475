// Which instances, in which order and how many, on the embedded machine of three nodes.

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "tests/support/TestMachine.h"
#include "tests/tools/support/Program.h"

namespace tool {

namespace {

using nlohmann::json;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

std::vector<std::string> names(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"--format", "json", "instances", "OMC_NumericSensor"});
    const Outcome outcome = run(std::move(arguments));
    EXPECT_EQ(outcome.err, "");
    std::vector<std::string> found;
    for (const json& instance : json::parse(outcome.out)) {
        found.push_back(std::to_string(instance["node"].get<int>()) + ' ' +
                        instance["properties"]["ElementName"].get<std::string>());
    }
    return found;
}

Outcome ask(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"instances", "OMC_NumericSensor"});
    return run(std::move(arguments));
}

}  // namespace

TEST(Where, ChoosesInstancesByTheirProperties) {
    EXPECT_THAT(names({"--where", "HealthState!=5 and ElementName~temp and CurrentReading>=89"}),
                ElementsAre("1 DIMM 4 Temp", "3 CPU 1 Temp"));
    EXPECT_THAT(names({"--where", "HealthState=unknown"}), ElementsAre("1 VRM Temp"));
    EXPECT_THAT(names({"--where", "OperationalStatus=Degraded and not (ElementName='DIMM 4 Temp')"}),
                ElementsAre("3 Coolant Temp", "3 CPU 1 Temp"));
    EXPECT_THAT(names({"--where", "LastUpdate<'2024-09-12 07:15:12' and LastUpdate>2024-09-12"}),
                ElementsAre("1 Ambient Temp"));
}

TEST(Where, KnowsTheNodeAsAProperty) {
    EXPECT_THAT(names({"--where", "NodeID=2 and ElementName~fan", "--sort", "-ElementName"}),
                ElementsAre("2 Fan 2 Tach", "2 Fan 1 Tach"));
    EXPECT_THAT(names({"--where", "ElementName='CPU 1 Temp'", "--sort", "-NodeID"}),
                ElementsAre("3 CPU 1 Temp", "2 CPU 1 Temp", "1 CPU 1 Temp"));
}

TEST(Where, CountsAgainstTheLimitWhatFits) {
    EXPECT_THAT(names({"--where", "BaseUnits=RPM", "--limit", "1"}), ElementsAre("1 Fan 1 Tach"));
}

TEST(Where, SaysThatNothingFits) {
    const Outcome outcome = ask({"--where", "CurrentReading>100000"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "cimhttp: no instance of OMC_NumericSensor fits\n");
}

TEST(Where, AMistakeIsPointedAtBeforeAnyInstanceIsAskedFor) {
    NQELVSK20::TestMachine machine(1);
    const Outcome outcome = run({"--node", machine.Host(0), "instances", "OMC_NumericSensor", "--where",
                                 "HealthState=5 && ElementName~fan"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "cimhttp: --where, character 15: 'and', 'or' or the end is expected, not '&&'\n");
    EXPECT_THAT(machine.Requests(), Not(Contains("0 EnumerateInstances OMC_NumericSensor")));
}

TEST(Sort, OrdersTheInstancesOfAllNodes) {
    EXPECT_THAT(names({"--sort", "-CurrentReading", "--where", "BaseUnits='Degrees C'", "--limit", "3"}),
                ElementsAre("1 DIMM 4 Temp", "3 CPU 1 Temp", "3 CPU 2 Temp"));
    EXPECT_THAT(names({"--sort", "BaseUnits,CurrentReading", "--limit", "2"}),
                ElementsAre("3 Coolant Temp", "1 Ambient Temp"));
    EXPECT_EQ(ask({"--sort", "Speed"}).err, "cimhttp: OMC_NumericSensor has no property 'Speed'\n");
}

TEST(Count, TellsHowMany) {
    EXPECT_EQ(ask({"--count"}).out, "29\n");
    EXPECT_EQ(ask({"--count", "--format", "json"}).out, "{\"count\": 29}\n");
    EXPECT_EQ(ask({"--count", "--where", "HealthState=10"}).out, "3\n");
}

TEST(Count, KeepsToTheLimitAndCountsNothingToo) {
    EXPECT_EQ(ask({"--count", "--limit", "2", "--sort", "CurrentReading"}).out, "2\n");
    EXPECT_EQ(ask({"--count", "--sort", "Speed"}).status, 2);
    const Outcome none = ask({"--count", "--where", "HealthState=15"});
    EXPECT_EQ(none.status, 1);
    EXPECT_EQ(none.out, "0\n");
    EXPECT_EQ(none.err, "");
}

TEST(ValueNames, AreTakenForAMethodsArguments) {
    const std::string path =
        "OMC_UnitaryComputerSystem.CreationClassName=OMC_UnitaryComputerSystem,Name=node-0.machine.example";
    const Outcome outcome = run({"invoke", path, "RequestStateChange", "RequestedState=disabled"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.out, run({"invoke", path, "RequestStateChange", "RequestedState=3"}).out);
    const Outcome refused = run({"invoke", path, "RequestStateChange", "RequestedState=Off"});
    EXPECT_EQ(refused.status, 2);
    EXPECT_THAT(refused.err, HasSubstr("or one of Enabled, Disabled, "));
}

}  // namespace tool
