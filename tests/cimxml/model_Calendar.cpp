#include "cimxml/common/Calendar.h"

#include <gtest/gtest.h>

using namespace Pegasus;

TEST(Calendar, CountsEveryDayOfTenThousandYears) {
    CalendarDay expected{0, 1, 1};
    for (Uint32 number = 0; number < 3652425; ++number) {
        const CalendarDay day = fromDayNumber(number);
        ASSERT_EQ(day.year, expected.year) << number;
        ASSERT_EQ(day.month, expected.month) << number;
        ASSERT_EQ(day.day, expected.day) << number;
        ASSERT_EQ(toDayNumber(day), number);
        if (++expected.day > daysInMonth(expected.year, expected.month)) {
            expected.day = 1;
            ++expected.month;
        }
        if (expected.month > 12) {
            expected.month = 1;
            ++expected.year;
        }
    }
    EXPECT_EQ(expected.year, 10000u);
}

TEST(Calendar, KnowsTheLengthsOfMonths) {
    EXPECT_EQ(daysInMonth(2023, 2), 28u);
    EXPECT_EQ(daysInMonth(2024, 2), 29u);
    EXPECT_EQ(daysInMonth(1900, 2), 28u);
    EXPECT_EQ(daysInMonth(2000, 2), 29u);
    EXPECT_EQ(daysInMonth(0, 2), 29u);
    EXPECT_EQ(daysInMonth(2023, 4), 30u);
    EXPECT_EQ(daysInMonth(2023, 12), 31u);
}
