#include "cimxml/wire/Scalars.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace cimxml_test {
namespace {

using namespace cimxml;
using namespace Pegasus;

template <class Number>
class Integers : public testing::Test {};

using IntegerTypes = testing::Types<Uint8, Sint8, Uint16, Sint16, Uint32, Sint32, Uint64, Sint64>;
TYPED_TEST_SUITE(Integers, IntegerTypes, );

TYPED_TEST(Integers, ReachTheirLimits) {
    using Limits = std::numeric_limits<TypeParam>;
    EXPECT_EQ(parseInteger<TypeParam>(std::to_string(Limits::max())), Limits::max());
    EXPECT_EQ(parseInteger<TypeParam>(std::to_string(Limits::min())), Limits::min());
}

TYPED_TEST(Integers, EndOneBeyondTheirLimits) {
    using Limits = std::numeric_limits<TypeParam>;
    // The last digit of every limit is below 9.
    std::string above = std::to_string(Limits::max());
    ++above.back();
    EXPECT_FALSE(parseInteger<TypeParam>(above)) << above;
    std::string below = Limits::is_signed ? std::to_string(Limits::min()) : "-0";
    ++below.back();
    EXPECT_FALSE(parseInteger<TypeParam>(below)) << below;
}

TYPED_TEST(Integers, TakeSignsBlanksAndHexadecimal) {
    EXPECT_EQ(parseInteger<TypeParam>(" +7\n"), TypeParam(7));
    EXPECT_EQ(parseInteger<TypeParam>("0x1f"), TypeParam(31));
    EXPECT_EQ(parseInteger<TypeParam>("0X1F"), TypeParam(31));
    EXPECT_EQ(parseInteger<TypeParam>("-0x0"), TypeParam(0));
    EXPECT_EQ(parseInteger<TypeParam>("5.000"), TypeParam(5));
}

TYPED_TEST(Integers, AreNothingElse) {
    for (const char* text :
         {"", " ", "-", "+", "0x", "1 2", "1a", "5.5", ".0", "--1", "+-1", "0x-1", "TRUE"}) {
        EXPECT_FALSE(parseInteger<TypeParam>(text)) << text;
    }
}

TEST(Reals, ComeInManySpellings) {
    EXPECT_EQ(parseReal<Real64>("1.5"), 1.5);
    EXPECT_EQ(parseReal<Real64>("-1.5e-3"), -1.5e-3);
    EXPECT_EQ(parseReal<Real64>("+2"), 2.0);
    EXPECT_EQ(parseReal<Real64>(".5"), 0.5);
    EXPECT_EQ(parseReal<Real64>("5."), 5.0);
    EXPECT_EQ(parseReal<Real64>("INF"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(parseReal<Real64>("-inf"), -std::numeric_limits<double>::infinity());
    EXPECT_TRUE(std::isnan(parseReal<Real64>("nan").value()));
    EXPECT_EQ(parseReal<Real32>("0.1"), 0.1F);
}

TEST(Reals, BecomeZeroWhenTooSmallAndNothingWhenTooLarge) {
    EXPECT_EQ(parseReal<Real64>("1e-400"), 0.0);
    EXPECT_EQ(parseReal<Real64>("0." + std::string(400, '0') + "1"), 0.0);
    EXPECT_EQ(parseReal<Real32>("1e-60"), 0.0F);
    EXPECT_FALSE(parseReal<Real64>("1e400"));
    EXPECT_FALSE(parseReal<Real64>("1" + std::string(400, '0')));
    EXPECT_FALSE(parseReal<Real32>("1e39"));
}

TEST(Reals, AreNothingElse) {
    for (const char* text : {"", "-", ".", "e5", "1e", "1,5", "0x10", "nano", "infinite", "1 2"}) {
        EXPECT_FALSE(parseReal<Real64>(text)) << text;
    }
}

TEST(Booleans, AreTrueOrFalse) {
    EXPECT_EQ(parseBoolean(" TrUe "), true);
    EXPECT_EQ(parseBoolean("false"), false);
    EXPECT_EQ(parseBoolean("1"), true);
    EXPECT_EQ(parseBoolean("0"), false);
    EXPECT_FALSE(parseBoolean("").has_value());
    EXPECT_FALSE(parseBoolean("yes").has_value());
    EXPECT_FALSE(parseBoolean("truely").has_value());
}

TEST(Char16s, AreOneUtf16Unit) {
    EXPECT_EQ(parseChar16("x"), Char16('x'));
    EXPECT_EQ(parseChar16("\xE2\x82\xAC"), Char16(0x20AC));
    EXPECT_EQ(parseChar16(" "), Char16(' '));
    EXPECT_FALSE(parseChar16(""));
    EXPECT_FALSE(parseChar16("xy"));
    EXPECT_FALSE(parseChar16("\xF0\x9F\x98\x80")) << "two units";
}

TEST(Types, HaveKeywordsInAnyLetterCase) {
    EXPECT_EQ(parseType("uint16"), CIMTYPE_UINT16);
    EXPECT_EQ(parseType(" DateTime "), CIMTYPE_DATETIME);
    EXPECT_EQ(parseType("reference"), CIMTYPE_REFERENCE);
    EXPECT_FALSE(parseType("object")) << "a type of the API, not of the wire";
    EXPECT_FALSE(parseType(""));
}

}  // namespace
}  // namespace cimxml_test
