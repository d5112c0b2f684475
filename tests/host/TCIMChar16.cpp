#include "vskcore/TCIMChar16.h"

#include <gtest/gtest.h>

namespace NQELVSK20 {
namespace {

TEST(TCIMChar16, TakesItsCodeAsDecimalText) {
    EXPECT_EQ(TCIMChar16("65").GetCode(), 65);
    EXPECT_EQ(TCIMChar16("0").GetCode(), 0);
    EXPECT_EQ(TCIMChar16("65535").GetCode(), 65535);
}

TEST(TCIMChar16, WritesItsCodeAsDecimalText) {
    EXPECT_EQ(TCIMChar16("65").ToString(), "65");
    EXPECT_EQ(TCIMChar16().ToString(), "0");
}

TEST(TCIMChar16, TakesZeroForTextThatIsNoCode) {
    for (const char* text : {"", "A", "65536", "-1", "65 ", "6x"}) {
        EXPECT_EQ(TCIMChar16(text).GetCode(), 0) << text;
    }
}

TEST(TCIMChar16, EqualsOneOfTheSameCode) {
    EXPECT_TRUE(TCIMChar16("65") == TCIMChar16("065"));
    EXPECT_FALSE(TCIMChar16("65") == TCIMChar16("66"));
}

}  // namespace
}  // namespace NQELVSK20
