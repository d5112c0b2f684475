#include "tools/values/JsonValue.h"

#include <gtest/gtest.h>

#include <limits>
#include <nlohmann/json.hpp>

namespace tool {

using NQELVSK20::TCIMChar16;
using NQELVSK20::TCIMDateTime;
using NQELVSK20::TCIMValue;

namespace {

using TType = TCIMValue::TCIMType;

std::string compactJson(const TCIMValue& value) {
    return jsonText(jsonValue(value), -1, false);
}

}  // namespace

TEST(JsonValue, WritesIntegersExactly) {
    EXPECT_EQ(compactJson(TCIMValue(18446744073709551615ULL)), "18446744073709551615");
    EXPECT_EQ(compactJson(TCIMValue(std::numeric_limits<long long>::min())), "-9223372036854775808");
    EXPECT_EQ(compactJson(TCIMValue(static_cast<unsigned char>(65))), "65");
    EXPECT_EQ(compactJson(TCIMValue(static_cast<signed char>(-65))), "-65");
}

TEST(JsonValue, WritesRealsInTheirShortestForm) {
    EXPECT_EQ(compactJson(TCIMValue(0.1F)), "0.1");
    EXPECT_EQ(compactJson(TCIMValue(0.1)), "0.1");
    EXPECT_EQ(compactJson(TCIMValue(2.0)), "2.0");
}

TEST(JsonValue, WritesRealsThatJsonHasNoNumberForAsText) {
    EXPECT_EQ(compactJson(TCIMValue(std::numeric_limits<double>::quiet_NaN())), "\"NaN\"");
    EXPECT_EQ(compactJson(TCIMValue(std::numeric_limits<float>::infinity())), "\"INF\"");
    EXPECT_EQ(compactJson(TCIMValue(-std::numeric_limits<double>::infinity())), "\"-INF\"");
}

TEST(JsonValue, KeepsBooleansArraysAndNullApartFromText) {
    EXPECT_EQ(compactJson(TCIMValue(true)), "true");
    EXPECT_EQ(compactJson(TCIMValue()), "null");
    EXPECT_EQ(compactJson(TCIMValue(TType(TType::eUint16Array), 0)), "null");
    EXPECT_EQ(
        compactJson(TCIMValue(TType::eUint16, 0, {TCIMValue(static_cast<unsigned short>(1)), TCIMValue()})),
        "[1,null]");
    EXPECT_EQ(compactJson(TCIMValue("true")), "\"true\"");
}

TEST(JsonValue, WritesTheRestAsText) {
    EXPECT_EQ(compactJson(TCIMValue(TCIMChar16("65"))), "\"A\"");
    EXPECT_EQ(compactJson(TCIMValue(TCIMDateTime("20240901090000.000000+060"))),
              "\"20240901090000.000000+060\"");
}

TEST(JsonValue, StaysValidWhateverTheServerSent) {
    EXPECT_EQ(compactJson(TCIMValue("a\xff\x1b")), "\"a\xEF\xBF\xBD\\u001b\"");
    EXPECT_EQ(jsonText(jsonValue(TCIMValue("é\x7f")), -1, true), "\"\\u00e9\\u007f\"");
}

}  // namespace tool
