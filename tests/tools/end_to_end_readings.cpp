// What sensors measure, as a person sees it, on the embedded machine of three nodes.

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "tests/tools/support/Program.h"

namespace tool {

namespace {

using nlohmann::json;
using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;

// The instance of a display name on a node.
json sensorOf(const json& instances, const std::string& node, const std::string& name) {
    for (const json& instance : instances) {
        if (instance["node"] == std::stoi(node) && instance["properties"]["ElementName"] == name) {
            return instance;
        }
    }
    return {};
}

json sensors(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"--format", "json", "instances", "OMC_NumericSensor"});
    return json::parse(run(std::move(arguments)).out);
}

}  // namespace

TEST(Readings, AreAColumnThatNobodyDeclares) {
    const Outcome outcome = run({"instances", "OMC_NumericSensor", "--columns", "ElementName,reading"});
    EXPECT_EQ(outcome.status, 0);
    const auto lines = linesOf(outcome.out);
    EXPECT_THAT(lines, Contains("Node  ElementName     Reading"));
    EXPECT_THAT(lines, Contains("1     Planar 3.3V     3.312 V"));
    EXPECT_THAT(lines, Contains("1     PS 1 Current    1.18 A"));
    EXPECT_THAT(lines, Contains("1     DIMM 4 Temp     91 °C > 85 upper non-critical"));
    EXPECT_THAT(lines, Contains("3     CPU 1 Temp      89 °C > 88 upper non-critical"));
    // Supports two thresholds and has none; switched off.
    EXPECT_THAT(lines, Contains("1     Fan 1 Tach      8550 RPM"));
    EXPECT_THAT(lines, Contains("1     VRM Temp        "));
}

TEST(Readings, AreAColumnOfSensorsOnly) {
    const Outcome outcome = run({"instances", "OMC_Processor", "--columns", "Reading"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "cimhttp: OMC_Processor has no property 'Reading'\n");
}

TEST(Readings, StandAboveTheProperties) {
    const Outcome outcome = run({"instances", "CIM_NumericSensor"});
    EXPECT_THAT(outcome.out, HasSubstr("    node                       1\n"
                                       "    reading                    23 °C\n"));
    EXPECT_THAT(outcome.out, HasSubstr("    CurrentReading             3312\n"));
    EXPECT_THAT(run({"instances", "OMC_Processor"}).out, Not(HasSubstr("    reading")));
}

TEST(Readings, StandInJsonBesideTheValuesAsTheyAre) {
    const json all = sensors({});
    const json planar = sensorOf(all, "1", "Planar 3.3V");
    EXPECT_EQ(planar["properties"]["CurrentReading"], 3312);
    EXPECT_EQ(planar["properties"]["UnitModifier"], -3);
    EXPECT_EQ(planar["reading"].dump(),
              R"({"state":"normal","thresholds":{"upperCritical":3.6,"upperNonCritical":3.5},)"
              R"("unit":"V","value":3.312})");
    EXPECT_EQ(sensorOf(all, "1", "DIMM 4 Temp")["reading"]["state"], "upper non-critical");
    EXPECT_EQ(sensorOf(all, "1", "VRM Temp").count("reading"), 0U);
}

TEST(Readings, StandInJsonWhenTheyAreAmongTheColumns) {
    const json named = sensors({"--columns", "ElementName,Reading"})[0];
    EXPECT_EQ(named["properties"].dump(), R"({"ElementName":"Ambient Temp"})");
    EXPECT_EQ(named["reading"]["value"], 23);
    EXPECT_EQ(sensors({"--columns", "ElementName"})[0].count("reading"), 0U);
    EXPECT_EQ(sensors({"--columns", "Reading"})[0]["properties"].dump(), "{}");
}

TEST(Readings, AreFieldsOfCsv) {
    const Outcome outcome =
        run({"--format", "csv", "instances", "OMC_NumericSensor", "--columns", "ElementName,Reading"});
    EXPECT_THAT(outcome.out, HasSubstr("node,path,ElementName,Reading\r\n"));
    EXPECT_THAT(outcome.out, HasSubstr(",DIMM 4 Temp,91 °C > 85 upper non-critical\r\n"));
}

TEST(Readings, AreShownOfOneInstance) {
    const json planar = sensorOf(sensors({}), "1", "Planar 3.3V");
    EXPECT_THAT(run({"get", planar["path"]}).out, HasSubstr("    reading                    3.312 V\n"));
    EXPECT_EQ(json::parse(run({"--format", "json", "get", planar["path"]}).out), planar);
}

}  // namespace tool
