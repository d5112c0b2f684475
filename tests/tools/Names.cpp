#include "tools/common/Names.h"

#include <gtest/gtest.h>

#include "tools/common/UsageError.h"

namespace tool {

TEST(Names, DifferNotByCase) {
    EXPECT_TRUE(sameName("CIM_Fan", "cim_FAN"));
    EXPECT_FALSE(sameName("CIM_Fan", "CIM_Fans"));
    EXPECT_FALSE(NameLess()("CIM_Fan", "cim_fan"));
    EXPECT_TRUE(NameLess()("cim_fan", "CIM_Fans"));
    EXPECT_EQ(lowerName("CIM_Fan"), "cim_fan");
}

TEST(Names, AreIdentifiers) {
    EXPECT_TRUE(isCimName("_x1"));
    EXPECT_TRUE(isCimName("CIM_Fan"));
    for (const char* text : {"", "1x", "a-b", "a b", "a.b", "Lüfter", "<root>"}) {
        EXPECT_FALSE(isCimName(text)) << text;
    }
}

TEST(Names, RefusedWithTheirText) {
    try {
        requireClassName("a-b");
        FAIL();
    } catch (const UsageError& error) {
        EXPECT_STREQ(error.what(), "'a-b' cannot be the name of a class");
    }
}

}  // namespace tool
