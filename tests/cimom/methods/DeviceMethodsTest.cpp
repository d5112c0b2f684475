#include "cimom/methods/DeviceMethods.h"

#include <gtest/gtest.h>

#include "tests/cimom/support/SampleNameSpace.h"
#include "tests/cimom/support/SmallNameSpace.h"

namespace cimom {
namespace {

using test::named;
using test::valueXml;

const char* const kSensor = "OMC_NumericSensor";
constexpr std::size_t kAmbientTemperature = 0;
constexpr std::size_t kHumidity = 12;

std::string returnOf(pugi::xml_node result) {
    return result.child("RETURNVALUE").child_value("VALUE");
}

TEST(DeviceMethods, ResetReturnsZero) {
    test::SampleNameSpace space;
    EXPECT_EQ(returnOf(space.invoke("Reset", space.pathOf("OMC_Processor"), {})), "0");
    EXPECT_EQ(test::errorOf([&] { space.invoke("Reset", test::classNameXml("OMC_Processor"), {}); }), 4);
}

TEST(DeviceMethods, RestoreDefaultThresholdsDerivesThemFromTheNominalReading) {
    test::SampleNameSpace space;
    EXPECT_EQ(space.valueOf(kSensor, kAmbientTemperature, "NominalReading"), "22");
    EXPECT_EQ(returnOf(space.invoke("RestoreDefaultThresholds", space.pathOf(kSensor), {})), "0");
    EXPECT_EQ(space.valueOf(kSensor, kAmbientTemperature, "UpperThresholdNonCritical"), "27");
    EXPECT_EQ(space.valueOf(kSensor, kAmbientTemperature, "UpperThresholdCritical"), "32");
}

TEST(DeviceMethods, GetNonLinearFactorsReturnsThemForANonLinearSensor) {
    test::SampleNameSpace space;
    const auto result = space.invoke("GetNonLinearFactors", space.pathOf(kSensor, kHumidity),
                                     {{"SensorReading", valueXml("415")}});
    EXPECT_EQ(returnOf(result), "0");
    EXPECT_STREQ(named(result, "Accuracy").child_value("VALUE"), "150");
    EXPECT_STREQ(named(result, "Resolution").child_value("VALUE"), "50");
    EXPECT_STREQ(named(result, "Tolerance").child_value("VALUE"), "-25");
}

TEST(DeviceMethods, GetNonLinearFactorsReturnsNullsForALinearSensor) {
    test::SampleNameSpace space;
    const auto result =
        space.invoke("GetNonLinearFactors", space.pathOf(kSensor), {{"SensorReading", valueXml("1")}});
    EXPECT_EQ(returnOf(result), "1");
    EXPECT_TRUE(named(result, "Accuracy"));
    EXPECT_FALSE(named(result, "Accuracy").first_child());
}

}  // namespace
}  // namespace cimom
