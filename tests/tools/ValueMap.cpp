#include "tools/values/ValueMap.h"

#include <gtest/gtest.h>

namespace tool {

using NQELVSK20::TCIMValue;

TEST(ValueMap, FindsSingleValuesRangesAndTheRest) {
    const ValueMap map({"0", "2", "3..7", "0x8000..65535", ".."},
                       {"Unknown", "OK", "Some", "Vendor", "Reserved"});
    EXPECT_EQ(map.textOf(TCIMValue(static_cast<unsigned short>(2))), "OK");
    EXPECT_EQ(map.textOf(TCIMValue(static_cast<unsigned short>(3))), "Some");
    EXPECT_EQ(map.textOf(TCIMValue(static_cast<unsigned short>(7))), "Some");
    EXPECT_EQ(map.textOf(TCIMValue(static_cast<unsigned short>(0x8000))), "Vendor");
    EXPECT_EQ(map.textOf(TCIMValue(static_cast<unsigned short>(1))), "Reserved");
}

TEST(ValueMap, RangesMayBeOpenAtOneEnd) {
    const ValueMap map({"..-1", "1.."}, {"below", "above"});
    EXPECT_EQ(map.textOf(TCIMValue(-9223372036854775807LL - 1)), "below");
    EXPECT_EQ(map.textOf(TCIMValue(18446744073709551615ULL)), "above");
    EXPECT_EQ(map.textOf(TCIMValue(0)), std::nullopt);
}

TEST(ValueMap, TextsAloneStandForTheirPosition) {
    const ValueMap map({}, {"No", "Yes"});
    EXPECT_EQ(map.textOf(TCIMValue(1)), "Yes");
    EXPECT_EQ(map.textOf(TCIMValue(2)), std::nullopt);
}

TEST(ValueMap, MapsTextToo) {
    const ValueMap map({"OK", "Error"}, {"Fine", "Broken"});
    EXPECT_EQ(map.textOf(TCIMValue("Error")), "Broken");
    EXPECT_EQ(map.textOf(TCIMValue("error")), std::nullopt);
}

TEST(ValueMap, ListsOfDifferentLengthEndWithTheShorter) {
    const ValueMap fewTexts({"1", "2", "3"}, {"one", "two"});
    EXPECT_EQ(fewTexts.entries().size(), 2U);
    const ValueMap fewValues({"5"}, {"five", "six"});
    EXPECT_EQ(fewValues.entries().size(), 1U);
    EXPECT_EQ(fewValues.textOf(TCIMValue(1)), std::nullopt);
}

TEST(ValueMap, HasNoTextForNullAndUnreadableEntries) {
    const ValueMap map({"x..y", "1"}, {"odd", "one"});
    EXPECT_EQ(map.textOf(TCIMValue()), std::nullopt);
    EXPECT_EQ(map.textOf(TCIMValue(5)), std::nullopt);
    EXPECT_EQ(map.textOf(TCIMValue(1)), "one");
}

TEST(ValueMap, FindsTheValueOfAText) {
    const ValueMap map({"2", "0x10", "3..7"}, {"OK", "Hot", "Reserved"});
    EXPECT_EQ(map.valueOf("ok"), "2");
    EXPECT_EQ(map.valueOf("Hot"), "0x10");
    EXPECT_FALSE(map.valueOf("Reserved"));
    EXPECT_FALSE(map.valueOf("Cold"));
    EXPECT_EQ(map.texts(), "OK, Hot, Reserved");
}

}  // namespace tool
