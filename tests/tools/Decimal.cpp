#include "tools/common/Decimal.h"

#include <gtest/gtest.h>

namespace tool {

namespace {

std::string readAndWritten(const std::string& text) {
    const auto number = Decimal::parse(text);
    return number ? number->text() : "none";
}

Decimal decimal(const std::string& text) {
    return *Decimal::parse(text);
}

}  // namespace

TEST(Decimal, KeepsEveryDigitOfANumber) {
    EXPECT_EQ(readAndWritten("0"), "0");
    EXPECT_EQ(readAndWritten("-0.0"), "0");
    EXPECT_EQ(readAndWritten("+007.50"), "7.5");
    EXPECT_EQ(readAndWritten("-.5"), "-0.5");
    EXPECT_EQ(readAndWritten("1200"), "1200");
    EXPECT_EQ(readAndWritten("18446744073709551615"), "18446744073709551615");
    EXPECT_EQ(readAndWritten("-9223372036854775808"), "-9223372036854775808");
    EXPECT_EQ(readAndWritten("0.1000000000000000055511151231257827"), "0.1000000000000000055511151231257827");
    EXPECT_EQ(readAndWritten("1.5E3"), "1500");
    EXPECT_EQ(readAndWritten("25e-3"), "0.025");
}

TEST(Decimal, WritesWhatWouldBeTooLongWithAPower) {
    EXPECT_EQ(readAndWritten("1e300"), "1e+300");
    EXPECT_EQ(readAndWritten("-2.2250738585072014e-308"), "-2.2250738585072014e-308");
    EXPECT_EQ(readAndWritten("0e999"), "0");
}

TEST(Decimal, RefusesWhatIsNoNumber) {
    for (const char* text : {"", "-", "+-1", ".", "1.2.3", "nan", "inf", "0x10", "1e", "1e+", "1 ", " 1",
                             "1e99999999999999", "1e99999999999999999999", "--1"}) {
        EXPECT_EQ(readAndWritten(text), "none") << text;
    }
}

TEST(Decimal, MovesThePointWithoutRounding) {
    EXPECT_EQ(decimal("331").scaledBy(-2).text(), "3.31");
    EXPECT_EQ(decimal("3312").scaledBy(-3).text(), "3.312");
    EXPECT_EQ(decimal("-4").scaledBy(-1).text(), "-0.4");
    EXPECT_EQ(decimal("5").scaledBy(3).text(), "5000");
    EXPECT_EQ(decimal("9223372036854775807").scaledBy(-2).text(), "92233720368547758.07");
    EXPECT_EQ(decimal("5").scaledBy(2147483647).text(), "5e+2147483647");
    EXPECT_EQ(decimal("51").scaledBy(-2147483647 - 1).text(), "5.1e-2147483647");
    EXPECT_EQ(decimal("0").scaledBy(2147483647), Decimal());
}

TEST(Decimal, ComparesBySizeWhateverTheSpelling) {
    EXPECT_EQ(decimal("5"), decimal("5.000"));
    EXPECT_EQ(decimal("-0"), decimal("0"));
    EXPECT_NE(decimal("5"), decimal("-5"));
    EXPECT_LT(decimal("9"), decimal("10"));
    EXPECT_LT(decimal("-10"), decimal("-9"));
    EXPECT_LT(decimal("-1"), decimal("0"));
    EXPECT_LT(decimal("0"), decimal("0.001"));
    EXPECT_LT(decimal("0.09"), decimal("0.1"));
    EXPECT_LT(decimal("12"), decimal("12.01"));
    EXPECT_LT(decimal("18446744073709551614"), decimal("18446744073709551615"));
    EXPECT_FALSE(decimal("0") < decimal("0"));
    EXPECT_FALSE(decimal("5") < decimal("5.0"));
    EXPECT_FALSE(decimal("0.1") < decimal("0"));
}

}  // namespace tool
