#include "cimxml/common/Numbers.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Pegasus;

TEST(Numbers, ReadsUnsignedDecimalAndHexadecimal) {
    EXPECT_EQ(parseUnsigned("0"), 0u);
    EXPECT_EQ(parseUnsigned("18446744073709551615"), std::numeric_limits<Uint64>::max());
    EXPECT_EQ(parseUnsigned("0xfF"), 255u);
    EXPECT_EQ(parseUnsigned("0X0f"), 15u);
}

TEST(Numbers, RejectsWhatIsNoUnsignedNumber) {
    for (const char* text : {"", "00", "01", "-1", "+1", " 1", "1 ", "1.", "0x", "x1", "0xg",
                             "18446744073709551616", "0x10000000000000000", "0x-1", "0x+1"})
        EXPECT_FALSE(parseUnsigned(text)) << text;
}

TEST(Numbers, ReadsSignedNumbers) {
    EXPECT_EQ(parseSigned("-9223372036854775808"), std::numeric_limits<Sint64>::min());
    EXPECT_EQ(parseSigned("+9223372036854775807"), std::numeric_limits<Sint64>::max());
    EXPECT_EQ(parseSigned("-0x10"), -16);
    EXPECT_EQ(parseSigned("-0"), 0);
}

TEST(Numbers, RejectsWhatIsNoSignedNumber) {
    for (const char* text :
         {"", "-", "+", "--1", "-+1", "9223372036854775808", "-9223372036854775809", "-01"})
        EXPECT_FALSE(parseSigned(text)) << text;
}

TEST(Numbers, ReadsReals) {
    EXPECT_EQ(parseReal("1.5"), 1.5);
    EXPECT_EQ(parseReal("+.5"), 0.5);
    EXPECT_EQ(parseReal("-1.5E+2"), -150.0);
    EXPECT_EQ(parseReal("0.0e-10"), 0.0);
}

TEST(Numbers, RejectsWhatIsNoReal) {
    for (const char* text : {"", "1", "1.", ".", "-", "1.5e", "1.5e+", "e1", "1.5x", "inf", "nan", "0x1.8",
                             "1.0e999", "+-1.5", " 1.5"})
        EXPECT_FALSE(parseReal(text)) << text;
    EXPECT_FALSE(parseReal(std::string("1.5\0", 4)));
}
