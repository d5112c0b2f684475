#include "cimom/common/Text.h"

#include <gtest/gtest.h>

namespace cimom {
namespace {

TEST(Text, LowersOnlyAsciiLetters) {
    EXPECT_EQ(lowered("CIM_Größe-09_"), "cim_größe-09_");
}

TEST(Text, ComparesNamesWithoutRegardToCase) {
    EXPECT_TRUE(sameName("OMC_Sensor", "omc_SENSOR"));
    EXPECT_FALSE(sameName("OMC_Sensor", "OMC_Sensors"));
    EXPECT_FALSE(sameName("@", "`"));
}

TEST(Text, TrimsBlanksTabsAndLineEnds) {
    EXPECT_EQ(trimmed(" \t\r\n a b \n"), "a b");
    EXPECT_EQ(trimmed(" \n "), "");
    EXPECT_EQ(trimmed(""), "");
}

}  // namespace
}  // namespace cimom
