#include "tools/common/DateTimeForm.h"

#include <gtest/gtest.h>

namespace tool {

TEST(DateTimeForm, AcceptsPointsInTimeAndIntervals) {
    for (const char* text :
         {"20240901090000.000000+060", "20240901090000.000000-300", "00000001132312.000000:000",
          "99999999235959.999999:000", "2024090109****.******+000", "20180911124613.128***-000"}) {
        EXPECT_TRUE(isDateTime(text)) << text;
    }
}

TEST(DateTimeForm, RefusesEverythingElse) {
    for (const char* text :
         {"", "2024-09-01T09:00:00Z", "20240901090000.000000+60", "20241301090000.000000+060",
          "20240932090000.000000+060", "20240901240000.000000+060", "20240901096000.000000+060",
          "20240901090060.000000+060", "20240901090000,000000+060", "00000001132312.000000:060",
          "2024090109000x.000000+060", "20240901090000.00000*0+060", "20240901090000.000000 060"}) {
        EXPECT_FALSE(isDateTime(text)) << text;
    }
}

}  // namespace tool
