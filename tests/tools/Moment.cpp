#include "tools/common/Moment.h"

#include <gtest/gtest.h>

namespace tool {

namespace {

long long microsecondsOf(const std::string& text) {
    const auto moment = Moment::of(text);
    return moment ? moment->microseconds : -1;
}

}  // namespace

TEST(Moment, IsTheSameInEveryZone) {
    EXPECT_EQ(microsecondsOf("20240912081511.250000+060"), microsecondsOf("20240912071511.250000+000"));
    EXPECT_EQ(microsecondsOf("20240911233000.000000-120"), microsecondsOf("20240912013000.000000+000"));
    EXPECT_LT(microsecondsOf("20240912081511.250000+120"), microsecondsOf("20240912081511.250000+060"));
}

TEST(Moment, CountsDaysAsTheCalendarDoes) {
    const long long day = 86'400'000'000;
    EXPECT_EQ(microsecondsOf("20240301000000.000000+000") - microsecondsOf("20240228000000.000000+000"),
              2 * day);
    EXPECT_EQ(microsecondsOf("21000301000000.000000+000") - microsecondsOf("21000228000000.000000+000"), day);
    EXPECT_EQ(microsecondsOf("20250101000000.000000+000") - microsecondsOf("20240101000000.000000+000"),
              366 * day);
    EXPECT_EQ(microsecondsOf("19700101000000.000001+000") - microsecondsOf("19691231235959.999999+000"), 2);
}

TEST(Moment, TellsIntervalsFromPointsInTime) {
    EXPECT_TRUE(Moment::of("00000010014510.000000:000")->isInterval);
    EXPECT_EQ(microsecondsOf("00000001000001.000002:000"), 86'401'000'002);
    EXPECT_FALSE(Moment::of("20240912081511.250000+060")->isInterval);
}

TEST(Moment, TakesWhatIsNotKnownAsTheEarliest) {
    EXPECT_EQ(microsecondsOf("20240912081511.******+000"), microsecondsOf("20240912081511.000000+000"));
    EXPECT_EQ(microsecondsOf("20240912081511.12****+000"), microsecondsOf("20240912081511.120000+000"));
    EXPECT_EQ(microsecondsOf("2024****081511.000000+000"), microsecondsOf("20240101081511.000000+000"));
    EXPECT_FALSE(Moment::of("yesterday"));
    EXPECT_FALSE(Moment::of(""));
}

TEST(Moment, IsWrittenForPeople) {
    EXPECT_EQ(timeText("20240911140241.125000+060"), "2024-09-11 14:02:41");
    EXPECT_EQ(timeText("00000010014510.000000:000"), "00000010014510.000000:000");
    EXPECT_EQ(timeText("soon"), "soon");
}

}  // namespace tool
