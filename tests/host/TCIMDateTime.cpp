#include "vskcore/TCIMDateTime.h"

#include <gtest/gtest.h>

namespace NQELVSK20 {
namespace {

TEST(TCIMDateTime, IsTheIntervalOfLengthZeroByDefault) {
    EXPECT_EQ(TCIMDateTime().ToString(), "00000000000000.000000:000");
}

TEST(TCIMDateTime, KeepsItsTextAsItIs) {
    for (const char* text : {"20240229120000.000000+060", "00000001000000.000000:000",
                             "20180911124613.128***:000", "not a datetime", ""}) {
        EXPECT_EQ(TCIMDateTime(text).ToString(), text);
    }
}

TEST(TCIMDateTime, EqualsOneOfTheSameText) {
    EXPECT_TRUE(TCIMDateTime() == TCIMDateTime("00000000000000.000000:000"));
    EXPECT_FALSE(TCIMDateTime() == TCIMDateTime(""));
}

}  // namespace
}  // namespace NQELVSK20
