#include "cimom/common/CimType.h"

#include <gtest/gtest.h>

namespace cimom {
namespace {

std::string canonical(const char* type, const std::string& text) {
    return canonicalValue(type, text).value_or("refused");
}

struct Range {
    const char* type;
    const char* smallest;
    const char* largest;
    const char* below;
    const char* above;
};

void PrintTo(const Range& range, std::ostream* out) {
    *out << range.type;
}

class IntegerRange : public testing::TestWithParam<Range> {};

TEST_P(IntegerRange, EndsWhereTheTypeEnds) {
    const Range& range = GetParam();
    EXPECT_EQ(canonical(range.type, range.smallest), range.smallest);
    EXPECT_EQ(canonical(range.type, range.largest), range.largest);
    EXPECT_EQ(canonical(range.type, range.below), "refused");
    EXPECT_EQ(canonical(range.type, range.above), "refused");
}

INSTANTIATE_TEST_SUITE_P(
    AllTypes, IntegerRange,
    testing::Values(Range{"uint8", "0", "255", "-1", "256"}, Range{"sint8", "-128", "127", "-129", "128"},
                    Range{"uint16", "0", "65535", "-1", "65536"},
                    Range{"sint16", "-32768", "32767", "-32769", "32768"},
                    Range{"uint32", "0", "4294967295", "-1", "4294967296"},
                    Range{"sint32", "-2147483648", "2147483647", "-2147483649", "2147483648"},
                    Range{"uint64", "0", "18446744073709551615", "-1", "18446744073709551616"},
                    Range{"sint64", "-9223372036854775808", "9223372036854775807", "-9223372036854775809",
                          "9223372036854775808"}),
    [](const testing::TestParamInfo<Range>& range) { return range.param.type; });

TEST(CanonicalValue, WritesIntegersInDecimalWithoutSignOrBlanks) {
    EXPECT_EQ(canonical("uint16", " +007 "), "7");
    EXPECT_EQ(canonical("uint16", "0xFF"), "255");
    EXPECT_EQ(canonical("sint16", "-0x10"), "-16");
    EXPECT_EQ(canonical("sint16", "-0"), "0");
}

TEST(CanonicalValue, RefusesWhatIsNoInteger) {
    for (const char* text : {"", " ", "1.0", "1e3", "--1", "0x", "one", "1 2", "0xfg"}) {
        EXPECT_EQ(canonical("uint32", text), "refused") << text;
    }
}

TEST(CanonicalValue, WritesBooleansInCapitals) {
    EXPECT_EQ(canonical("boolean", " true "), "TRUE");
    EXPECT_EQ(canonical("boolean", "False"), "FALSE");
    EXPECT_EQ(canonical("boolean", "yes"), "refused");
    EXPECT_EQ(canonical("boolean", ""), "refused");
}

TEST(CanonicalValue, KeepsRealsAsTheyAre) {
    for (const char* text : {"1", "-1.5", "3.4028235e+38", "1E-300", "INF", "-INF", "NaN", ".5"}) {
        EXPECT_EQ(canonical("real64", text), text);
    }
    for (const char* text : {"", "x", "0x1p3", "nan", "infinity", "1e", "1 2"}) {
        EXPECT_EQ(canonical("real32", text), "refused") << text;
    }
}

TEST(CanonicalValue, TakesOneUcs2CharacterForChar16) {
    EXPECT_EQ(canonical("char16", "A"), "A");
    EXPECT_EQ(canonical("char16", "€"), "€");
    EXPECT_EQ(canonical("char16", ""), "refused");
    EXPECT_EQ(canonical("char16", "AB"), "refused");
    EXPECT_EQ(canonical("char16", "😀"), "refused");
}

TEST(CanonicalValue, TakesDatetimesOf25CharactersWithWildcards) {
    EXPECT_EQ(canonical("datetime", "20240912081530.123456+120"), "20240912081530.123456+120");
    EXPECT_EQ(canonical("datetime", "00000001000000.000000:000"), "00000001000000.000000:000");
    EXPECT_EQ(canonical("datetime", "2024**********.******+000"), "2024**********.******+000");
    EXPECT_EQ(canonical("datetime", "2024-09-12T08:15:30"), "refused");
    EXPECT_EQ(canonical("datetime", "20240912081530,123456+120"), "refused");
    EXPECT_EQ(canonical("datetime", "20240912081530.123456/120"), "refused");
    EXPECT_EQ(canonical("datetime", "2024091208153x.123456+120"), "refused");
}

TEST(CanonicalValue, KnowsNoOtherTypes) {
    EXPECT_EQ(canonical("string", "any & thing"), "any & thing");
    EXPECT_EQ(canonical("uint128", "1"), "refused");
    EXPECT_EQ(canonical("reference", "x"), "refused");
}

TEST(CanonicalNumber, MakesEqualIntegersEqualTexts) {
    EXPECT_EQ(canonicalNumber(" 0042 "), "42");
    EXPECT_EQ(canonicalNumber("0x2A"), "42");
    EXPECT_EQ(canonicalNumber(" 1.5 "), "1.5");
}

TEST(KeyKind, FollowsTheType) {
    EXPECT_EQ(keyKindOf("boolean"), KeyBinding::Kind::Boolean);
    EXPECT_EQ(keyKindOf("uint8"), KeyBinding::Kind::Numeric);
    EXPECT_EQ(keyKindOf("real32"), KeyBinding::Kind::Numeric);
    EXPECT_EQ(keyKindOf("datetime"), KeyBinding::Kind::String);
    EXPECT_EQ(keyKindOf("reference"), KeyBinding::Kind::Reference);
}

TEST(IsCimType, KnowsTheNamesOfAllTypes) {
    for (const char* name : {"boolean", "uint8", "sint8", "uint16", "sint16", "uint32", "sint32", "uint64",
                             "sint64", "real32", "real64", "char16", "string", "datetime", "reference"}) {
        EXPECT_TRUE(isCimType(name)) << name;
    }
    EXPECT_FALSE(isCimType("Uint8"));
    EXPECT_FALSE(isCimType(""));
}

}  // namespace
}  // namespace cimom
