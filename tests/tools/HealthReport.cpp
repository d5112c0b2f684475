#include "tools/health/HealthReport.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "tests/tools/support/OutputText.h"
#include "tests/tools/support/Properties.h"
#include "tools/print/HealthJson.h"
#include "tools/print/HealthPrinter.h"
#include "tools/print/MonitoringLine.h"

namespace tool {

namespace {

using NQELVSK20::TCIMValue;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

Element elementOf(const std::string& node, const std::string& name, Severity severity,
                  const std::string& state) {
    Element element;
    element.node = node;
    element.name = name;
    element.severity = severity;
    element.state = state;
    return element;
}

Element sensorOf(const std::string& name, int reading) {
    Element element = elementOf("1", name, Severity::kFine, "OK");
    const Properties properties({{"BaseUnits", TCIMValue(static_cast<unsigned short>(2))},
                                 {"CurrentReading", TCIMValue(reading)},
                                 {"UpperThresholdNonCritical", TCIMValue(85)},
                                 {"UpperThresholdCritical", TCIMValue(95)}});
    element.reading = Reading::of(properties.source());
    return element;
}

LogEntry entryOf(const std::string& node, const std::string& time, Severity severity,
                 const std::string& text) {
    LogEntry entry;
    entry.node = node;
    entry.time = time;
    entry.moment = Moment::of(time);
    entry.severity = severity;
    entry.severityText = nameOf(severity);
    entry.text = text;
    return entry;
}

std::string minute(int number) {
    return "202409110001" + std::to_string(number) + ".000000+000";
}

std::vector<std::string> textsOf(const std::vector<LogEntry>& entries) {
    std::vector<std::string> texts;
    for (const LogEntry& entry : entries) {
        texts.push_back(entry.text);
    }
    return texts;
}

std::string printed(const HealthReport& report, bool all = false, std::size_t width = 0) {
    OutputText text;
    HealthPrinter(text.output(), width).print(report, all);
    return text.text();
}

const Element kPump = elementOf("2", "Pump", Severity::kCritical, "Critical failure");
const Element kFan = elementOf("1", "Fan 2", Severity::kWarning, "Degraded/Warning");
const Element kSlot = elementOf("1", "Slot", Severity::kUnknown, "");

}  // namespace

TEST(HealthReport, PutsTheWorstFirst) {
    const HealthReport report({kSlot, kFan, sensorOf("Temp", 20), kPump}, {}, 2);
    EXPECT_EQ(report.worst(), Severity::kCritical);
    EXPECT_EQ(report.elements()[0].name, "Pump");
    EXPECT_EQ(report.elements()[1].name, "Fan 2");
    EXPECT_EQ(report.elements()[3].name, "Slot");
    EXPECT_EQ(report.summary(), "2 of 4 elements on 2 nodes are not well, 1 tells no state");
}

TEST(HealthReport, SaysInALineThatAllIsWell) {
    const HealthReport well({sensorOf("Temp", 20)}, {entryOf("1", minute(10), Severity::kMajor, "old")}, 1);
    EXPECT_EQ(printed(well), "1 element on 1 node: all is well\n");
    EXPECT_EQ(printed(HealthReport({kSlot, sensorOf("Temp", 20)}, {}, 3)),
              "2 elements on 3 nodes: all is well, 1 tells no state\n");
}

TEST(HealthReport, DoesNotCallWellWhatTellsNothing) {
    EXPECT_EQ(HealthReport({kSlot, kSlot}, {}, 1).summary(), "2 elements on 1 node: none tells its state");
    EXPECT_EQ(HealthReport({kSlot}, {}, 1).worst(), Severity::kUnknown);
}

TEST(HealthReport, FindsTheNewestEntriesThatNameAnElement) {
    std::vector<LogEntry> entries;
    for (int i = 10; i < 15; ++i) {
        entries.push_back(entryOf("1", minute(i), Severity::kFine, "fan 2 runs slowly " + std::to_string(i)));
    }
    entries.push_back(entryOf("2", minute(16), Severity::kFine, "Fan 2 of another node"));
    entries.push_back(entryOf("1", minute(17), Severity::kFine, "Fan 22"));
    const HealthReport report({kFan}, entries, 2);
    EXPECT_THAT(textsOf(report.entriesOf(kFan)),
                ElementsAre("fan 2 runs slowly 14", "fan 2 runs slowly 13", "fan 2 runs slowly 12"));
}

TEST(HealthReport, FindsAnElementByItsDeviceIdOrByWhatWasFilledIn) {
    Element element = kFan;
    element.deviceId = "FAN-B";
    LogEntry byArgument = entryOf("1", minute(10), Severity::kFine, "too slow");
    EXPECT_FALSE(byArgument.names(element));
    byArgument.arguments = {"2"};
    EXPECT_FALSE(byArgument.names(element));
    byArgument.arguments = {"Fan"};
    EXPECT_TRUE(byArgument.names(element));
    EXPECT_TRUE(entryOf("1", minute(10), Severity::kFine, "lost fan-b.").names(element));
    element.deviceId = "17";
    EXPECT_FALSE(entryOf("1", minute(10), Severity::kFine, "17 errors").names(element));
}

TEST(HealthReport, FindsWhatElseIsBadInTheLogs) {
    const HealthReport report({kFan},
                              {entryOf("1", minute(10), Severity::kMajor, "memory"),
                               entryOf("1", minute(11), Severity::kFine, "the clock was set"),
                               entryOf("1", minute(12), Severity::kMajor, "Fan 2 runs slowly"),
                               entryOf("1", "never", Severity::kMinor, "undated")},
                              1);
    EXPECT_THAT(textsOf(report.otherEntries()), ElementsAre("memory", "undated"));
}

TEST(HealthReport, IsOneScreenForAPerson) {
    Element temperature = sensorOf("Temp", 91);
    temperature.severity = Severity::kWarning;
    temperature.state = "Degraded/Warning";
    const HealthReport report({temperature, kSlot, kPump},
                              {entryOf("2", minute(10), Severity::kMajor, "Pump stopped"),
                               entryOf("1", minute(11), Severity::kMajor, "memory")},
                              2);
    EXPECT_EQ(printed(report),
              "2 of 3 elements on 2 nodes are not well, 1 tells no state\n"
              "\n"
              "Node  State             Element\n"
              "2     Critical failure  Pump\n"
              "      2024-09-11 00:01:10  Pump stopped\n"
              "1     Degraded/Warning  Temp     91 °C > 85 upper non-critical\n"
              "\n"
              "Node  Also in the logs\n"
              "1     2024-09-11 00:01:11  major  memory\n");
    EXPECT_THAT(printed(report, true), HasSubstr("\n1                       Slot\n"));
    EXPECT_THAT(printed(report, false, 20), HasSubstr("\n2     Critical fail…\n"));
}

TEST(HealthReport, MakesTextsOfServersSafe) {
    const Element evil = elementOf("1", "\x1b[2J", Severity::kMajor, "a\nb");
    const std::string text =
        printed(HealthReport({evil}, {entryOf("\r", "\x07", Severity::kMajor, "\xff\x1b")}, 1));
    EXPECT_THAT(text, HasSubstr("1     a\\nb   \\x1b[2J\n"));
    EXPECT_THAT(text, HasSubstr("\\r    \\x07  major  \\xff\\x1b\n"));
    EXPECT_EQ(text.find('\x1b'), std::string::npos);
}

TEST(HealthReport, IsAnObjectInJson) {
    const HealthReport report({kPump, kSlot, sensorOf("Temp", 20)},
                              {entryOf("2", minute(10), Severity::kMajor, "Pump stopped")}, 2);
    const auto json = jsonHealth(report, false);
    EXPECT_EQ(json["severity"], "critical");
    EXPECT_EQ(json["elements"], 3);
    EXPECT_EQ(json["notWell"], 1);
    EXPECT_EQ(json["noState"], 1);
    ASSERT_EQ(json["found"].size(), 1U);
    EXPECT_EQ(json["found"][0]["name"], "Pump");
    EXPECT_EQ(json["found"][0]["log"][0]["text"], "Pump stopped");
    EXPECT_EQ(jsonHealth(report, true)["found"][1]["reading"]["value"], 20);
}

TEST(MonitoringLine, TellsReadingsBehindTheBar) {
    EXPECT_EQ(monitoringLine(HealthReport({sensorOf("CPU Temp", 61)}, {}, 1), true),
              "CIMHTTP OK - 1 element on 1 node: all is well | 'CPU Temp'=61;85;95");
    EXPECT_EQ(monitoringLine(HealthReport({kFan, sensorOf("It's", 61)}, {}, 2), true),
              "CIMHTTP WARNING - 1 of 2 elements on 2 nodes is not well: Fan 2 Degraded/Warning | "
              "'1/It''s'=61;85;95");
}

TEST(MonitoringLine, KeepsItsOwnMarksOutOfNames) {
    const Element evil = elementOf("1", "a|b\n", Severity::kMajor, "c|d");
    EXPECT_EQ(monitoringLine(HealthReport({evil, sensorOf("x=|y", 1)}, {}, 1), true),
              "CIMHTTP CRITICAL - 1 of 2 elements on 1 node is not well: a/b\\n c/d | 'x /y'=1;85;95");
    EXPECT_EQ(monitoringLine("no|way\n"), "CIMHTTP UNKNOWN - no/way\\n");
}

TEST(MonitoringLine, GivesEverySensorANameOfItsOwnAndAPlaceThatStays) {
    Element one = sensorOf("Temp", 1);
    one.deviceId = "A";
    Element other = sensorOf("Temp", 2);
    other.deviceId = "B";
    other.severity = Severity::kWarning;
    Element worse = sensorOf("Zone", 3);
    worse.severity = Severity::kWarning;
    EXPECT_THAT(monitoringLine(HealthReport({one, other, worse}, {}, 1), true),
                ::testing::EndsWith("| 'Temp B'=2;85;95 'Temp'=1;85;95 'Zone'=3;85;95"));
}

TEST(MonitoringLine, HasRangesWhereThereAreLowerThresholds) {
    Element element = sensorOf("Temp", 20);
    element.reading = Reading::of(Properties({{"BaseUnits", TCIMValue(static_cast<unsigned short>(65))},
                                              {"CurrentReading", TCIMValue(20)},
                                              {"LowerThresholdNonCritical", TCIMValue(10)},
                                              {"LowerThresholdFatal", TCIMValue(5)},
                                              {"UpperThresholdFatal", TCIMValue(99)}})
                                      .source());
    EXPECT_THAT(monitoringLine(HealthReport({element}, {}, 1), true),
                ::testing::EndsWith("| 'Temp'=20%;10:;5:99"));
}

TEST(MonitoringLine, NamesTheWorstOnly) {
    const std::string line = monitoringLine(HealthReport({kFan, kFan, kFan, kFan, kFan, kFan}, {}, 1), true);
    EXPECT_THAT(line, ::testing::EndsWith("Fan 2 Degraded/Warning, ..."));
}

TEST(MonitoringLine, RanksTheStatus) {
    const auto statusOf = [](const Element& element, bool isComplete) {
        return monitoringStatus(HealthReport({element, sensorOf("Temp", 1)}, {}, 1), isComplete);
    };
    EXPECT_EQ(statusOf(kSlot, true), MonitoringStatus::kOk);
    EXPECT_EQ(statusOf(kSlot, false), MonitoringStatus::kUnknown);
    EXPECT_EQ(statusOf(kFan, false), MonitoringStatus::kWarning);
    EXPECT_EQ(statusOf(elementOf("1", "a", Severity::kMinor, ""), true), MonitoringStatus::kWarning);
    EXPECT_EQ(statusOf(elementOf("1", "a", Severity::kMajor, ""), true), MonitoringStatus::kCritical);
    EXPECT_EQ(statusOf(kPump, true), MonitoringStatus::kCritical);
    EXPECT_EQ(monitoringStatus(HealthReport({}, {}, 1), true), MonitoringStatus::kUnknown);
    EXPECT_EQ(monitoringStatus(HealthReport({kSlot}, {}, 1), true), MonitoringStatus::kUnknown);
}

}  // namespace tool
