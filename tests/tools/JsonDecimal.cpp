#include "tools/values/JsonDecimal.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace tool {

namespace {

std::string written(const std::string& number) {
    return jsonDecimal(*Decimal::parse(number)).dump();
}

}  // namespace

TEST(JsonDecimal, WritesANumberAsItIs) {
    EXPECT_EQ(written("3.31"), "3.31");
    EXPECT_EQ(written("-4"), "-4");
    EXPECT_EQ(written("18446744073709551615"), "18446744073709551615");
    EXPECT_EQ(written("0.1"), "0.1");
}

TEST(JsonDecimal, WritesAsTextWhatReadersWouldRound) {
    EXPECT_EQ(written("92233720368547758.07"), "\"92233720368547758.07\"");
    EXPECT_EQ(written("1e400"), "\"1e+400\"");
    EXPECT_EQ(written("5e-2147483648"), "\"5e-2147483648\"");
}

}  // namespace tool
