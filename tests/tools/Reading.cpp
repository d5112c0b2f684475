#include "tools/health/Reading.h"

#include <gtest/gtest.h>

#include <limits>
#include <nlohmann/json.hpp>

#include "tests/tools/support/Properties.h"

namespace tool {

namespace {

using namespace NQELVSK20;
using TType = TCIMValue::TCIMType;

TCIMValue code(unsigned short number) {
    return TCIMValue(number);
}

TCIMValue codes(const std::vector<unsigned short>& numbers) {
    std::vector<TCIMValue> elements;
    for (const unsigned short number : numbers) {
        elements.push_back(code(number));
    }
    return TCIMValue(TType::eUint16, 0, elements);
}

Properties sensor(unsigned short unit, int modifier, int reading) {
    return Properties({{"BaseUnits", code(unit)},
                       {"UnitModifier", TCIMValue(modifier)},
                       {"CurrentReading", TCIMValue(reading)}});
}

std::string textOf(const Properties& properties) {
    const auto reading = Reading::of(properties.source());
    return reading ? reading->text() : "none";
}

// A sensor of degrees, warned at 85, critical at 95 and, below, at 5 and 0.
Properties thermometer(int reading) {
    return sensor(2, 0, reading)
        .set("UpperThresholdNonCritical", TCIMValue(85))
        .set("UpperThresholdCritical", TCIMValue(95))
        .set("LowerThresholdNonCritical", TCIMValue(5))
        .set("LowerThresholdCritical", TCIMValue(0))
        .set("SupportedThresholds", codes({0, 1, 2, 3}));
}

}  // namespace

TEST(Reading, IsScaledExactlyAndHasItsUnit) {
    EXPECT_EQ(textOf(sensor(5, -2, 331)), "3.31 V");
    EXPECT_EQ(textOf(sensor(5, -3, 3300)), "3.3 V");
    EXPECT_EQ(textOf(sensor(2, 0, -4)), "-4 °C");
    EXPECT_EQ(textOf(sensor(19, 0, 8550)), "8550 RPM");
    EXPECT_EQ(textOf(sensor(65, -1, 415)), "41.5 %");
    EXPECT_EQ(textOf(sensor(66, 3, 101)), "101000 Pa");
    EXPECT_EQ(textOf(sensor(61, 0, 7).set("RateUnits", code(3))), "7 B/s");
    EXPECT_EQ(textOf(sensor(0, 0, 7)), "7");
    EXPECT_EQ(textOf(sensor(67, 0, 7)), "7");
}

TEST(Reading, TakesAnyNumericType) {
    EXPECT_EQ(textOf(sensor(7, -2, 0).set("CurrentReading", TCIMValue(18446744073709551615ULL))),
              "184467440737095516.15 W");
    EXPECT_EQ(textOf(sensor(7, 0, 0).set("CurrentReading", TCIMValue(std::numeric_limits<long long>::min()))),
              "-9223372036854775808 W");
    EXPECT_EQ(textOf(sensor(7, 0, 0).set("CurrentReading", TCIMValue(0.5F))), "0.5 W");
}

TEST(Reading, TakesTheUnitOfDsp0004WhereNoOtherIsNamed) {
    Properties told({{"CurrentReading", TCIMValue(3312)}, {"ProgrammaticUnits", TCIMValue("volt * 10^-3")}});
    EXPECT_EQ(textOf(told), "3.312 V");
    EXPECT_EQ(textOf(told.set("UnitModifier", TCIMValue(-1)).set("BaseUnits", code(1))), "3.312 V");
    EXPECT_EQ(textOf(told.set("ProgrammaticUnits", TCIMValue("revolution / minute"))), "3312 RPM");
    EXPECT_EQ(textOf(told.set("ProgrammaticUnits", TCIMValue("parsec"))), "3312 parsec");
    EXPECT_EQ(textOf(told.set("ProgrammaticUnits", TCIMValue("")).set("UnitModifier", TCIMValue(-1))),
              "331.2");
    EXPECT_EQ(textOf(sensor(2, 0, 21).set("ProgrammaticUnits", TCIMValue("volt * 10^-3"))), "21 °C");
}

TEST(Reading, NamesTheWorstThresholdThatIsCrossed) {
    EXPECT_EQ(textOf(thermometer(50)), "50 °C");
    EXPECT_EQ(textOf(thermometer(85)), "85 °C");
    EXPECT_EQ(textOf(thermometer(86)), "86 °C > 85 upper non-critical");
    EXPECT_EQ(textOf(thermometer(96)), "96 °C > 95 upper critical");
    EXPECT_EQ(textOf(thermometer(4)), "4 °C < 5 lower non-critical");
    EXPECT_EQ(textOf(thermometer(-1)), "-1 °C < 0 lower critical");
    EXPECT_EQ(textOf(thermometer(96)
                         .set("UpperThresholdFatal", TCIMValue(90))
                         .set("SupportedThresholds", codes({1, 3, 5}))),
              "96 °C > 90 upper fatal");
}

TEST(Reading, ScalesThresholdsAsTheReading) {
    EXPECT_EQ(textOf(sensor(5, -3, 3601).set("UpperThresholdCritical", TCIMValue(3600))),
              "3.601 V > 3.6 upper critical");
}

TEST(Reading, AThresholdThatNobodySetIsNotCrossed) {
    // As the plug-in delivers nulls: supported by the sensor, and 0.
    EXPECT_EQ(textOf(sensor(19, 0, 8550)
                         .set("UpperThresholdNonCritical", TCIMValue(0))
                         .set("UpperThresholdCritical", TCIMValue(0))
                         .set("SupportedThresholds", codes({1, 3}))),
              "8550 RPM");
    EXPECT_EQ(textOf(sensor(2, 0, -4).set("LowerThresholdCritical", TCIMValue(0))), "-4 °C");
    EXPECT_EQ(textOf(thermometer(-1).set("SupportedThresholds", codes({0, 1, 3}))),
              "-1 °C < 5 lower non-critical");
    EXPECT_EQ(textOf(sensor(2, 0, 9).set("UpperThresholdCritical", TCIMValue(TType(TType::eSint32), 0))),
              "9 °C");
}

TEST(Reading, AThresholdThatIsNotInUseIsNotCrossed) {
    EXPECT_EQ(textOf(thermometer(96).set("EnabledThresholds", codes({0, 1}))),
              "96 °C > 85 upper non-critical");
    EXPECT_EQ(textOf(thermometer(96).set("EnabledThresholds", codes({}))), "96 °C > 95 upper critical");
    EXPECT_EQ(textOf(thermometer(96).set("SupportedThresholds", codes({2}))), "96 °C");
}

TEST(Reading, ThereIsNoneWithoutANumber) {
    EXPECT_EQ(textOf(Properties({})), "none");
    EXPECT_EQ(textOf(Properties({{"CurrentReading", TCIMValue(5)}})), "none");
    EXPECT_EQ(textOf(sensor(2, 0, 0).set("CurrentReading", TCIMValue(TType(TType::eSint32), 0))), "none");
    EXPECT_EQ(textOf(sensor(2, 0, 0).set("CurrentReading", TCIMValue("hot"))), "none");
    EXPECT_EQ(textOf(sensor(2, 0, 0).set("CurrentReading", codes({1}))), "none");
    EXPECT_EQ(
        textOf(sensor(2, 0, 0).set("CurrentReading", TCIMValue(std::numeric_limits<double>::quiet_NaN()))),
        "none");
    EXPECT_EQ(
        textOf(sensor(2, 0, 0).set("CurrentReading", TCIMValue(std::numeric_limits<double>::infinity()))),
        "none");
}

TEST(Reading, ZeroOfASensorThatIsOffIsNone) {
    EXPECT_EQ(textOf(sensor(2, 0, 0).set("EnabledState", code(3))), "none");
    EXPECT_EQ(textOf(sensor(2, 0, 0).set("EnabledState", code(2))), "0 °C");
    EXPECT_EQ(textOf(sensor(2, 0, 21).set("EnabledState", code(3))), "21 °C");
}

TEST(Reading, StandsModifiersOfAnySize) {
    const int lowest = std::numeric_limits<int>::min();
    const int highest = std::numeric_limits<int>::max();
    EXPECT_EQ(textOf(sensor(5, highest, 12)), "1.2e+2147483648 V");
    EXPECT_EQ(textOf(sensor(5, lowest, 12)), "1.2e-2147483647 V");
    EXPECT_EQ(textOf(sensor(5, highest, 12).set("UpperThresholdCritical", TCIMValue(11))),
              "1.2e+2147483648 V > 1.1e+2147483648 upper critical");
    EXPECT_EQ(textOf(sensor(5, 0, 12).set("UnitModifier", TCIMValue(18446744073709551615ULL))), "12 V");
    EXPECT_EQ(textOf(sensor(5, 0, 12).set("UnitModifier", TCIMValue("many"))), "12 V");
    EXPECT_EQ(textOf(Properties({{"CurrentReading", TCIMValue(12)},
                                 {"ProgrammaticUnits", TCIMValue("volt * 10^99999999999")}})),
              "12 V 10^99999999999");
}

TEST(Reading, MakesAUnitFromAServerSafe) {
    EXPECT_EQ(textOf(Properties(
                  {{"CurrentReading", TCIMValue(12)}, {"ProgrammaticUnits", TCIMValue("\x1b[2Jvolt")}})),
              "12 \\x1b[2Jvolt");
}

TEST(Reading, IsAnObjectInJson) {
    EXPECT_EQ(Reading::of(thermometer(86).source())->json().dump(),
              R"({"value":86,"unit":"°C","state":"upper non-critical","thresholds":{"lowerNonCritical":5,)"
              R"("upperNonCritical":85,"lowerCritical":0,"upperCritical":95}})");
    EXPECT_EQ(Reading::of(sensor(5, -2, 331).source())->json().dump(),
              R"({"value":3.31,"unit":"V","state":"normal","thresholds":{}})");
}

}  // namespace tool
