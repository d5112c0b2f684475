#include <Pegasus/Common/Char16.h>

#include "ApiTesting.h"

using namespace Pegasus;

TEST(Char16, IsZeroByDefault) {
    EXPECT_EQ(Uint16(Char16()), 0);
}

TEST(Char16, HoldsAnyCodeUnit) {
    EXPECT_EQ(Uint16(Char16(0xFFFF)), 0xFFFF);
    EXPECT_EQ(Uint16(Char16(0xD800)), 0xD800);
}

TEST(Char16, AssignsCodesAndCharacters) {
    Char16 x;
    x = Uint16(65);
    Char16 y;
    y = x;
    EXPECT_EQ(Uint16(y), 65);
}

TEST(Char16, ComparesWithCharactersAndChars) {
    const Char16 a('A');
    const Char16 b('B');
    EXPECT_TRUE(a == Char16('A'));
    EXPECT_TRUE(a == 'A');
    EXPECT_TRUE('A' == a);
    EXPECT_TRUE(a != b);
    EXPECT_TRUE(a != 'B');
    EXPECT_TRUE('B' != a);
    EXPECT_FALSE(a == b);
    EXPECT_FALSE(a != 'A');
}
