#include "tools/values/ValueText.h"

#include <gtest/gtest.h>

namespace tool {

using NQELVSK20::TCIMChar16;
using NQELVSK20::TCIMValue;

namespace {

using TType = TCIMValue::TCIMType;

TCIMValue arrayOf(TType type, const std::vector<TCIMValue>& elements) {
    return TCIMValue(type, 0, elements);
}

}  // namespace

TEST(ValueText, ShowsTheMeaningBesideTheNumber) {
    const ValueMap map({"0", "2"}, {"Unknown", "OK"});
    EXPECT_EQ(valueText(TCIMValue(2), &map), "2 (OK)");
    EXPECT_EQ(valueText(TCIMValue(9), &map), "9");
    EXPECT_EQ(valueText(arrayOf(TType::eSint32, {TCIMValue(2), TCIMValue(0)}), &map),
              "[2 (OK), 0 (Unknown)]");
}

TEST(ValueText, TellsNullFromEmpty) {
    EXPECT_EQ(valueText(TCIMValue(), nullptr), "(null)");
    EXPECT_EQ(valueText(TCIMValue(""), nullptr), "");
    EXPECT_EQ(valueText(arrayOf(TType::eString, {}), nullptr), "[]");
}

TEST(ValueText, ShowsAChar16AsItsCharacter) {
    EXPECT_EQ(valueText(TCIMValue(TCIMChar16("8364")), nullptr), "€");
    EXPECT_EQ(valueText(TCIMValue(TCIMChar16("10")), nullptr), "\\n");
}

TEST(ValueText, EscapesWhatATerminalWouldObey) {
    const ValueMap map({"1"}, {"\x1b[31m"});
    EXPECT_EQ(valueText(TCIMValue("a\x1b"
                                  "b"),
                        nullptr),
              "a\\x1bb");
    EXPECT_EQ(valueText(TCIMValue(1), &map), "1 (\\x1b[31m)");
}

TEST(ValueText, WritesMof) {
    EXPECT_EQ(mofText(TCIMValue("say \"hi\" \\")), R"("say \"hi\" \\")");
    EXPECT_EQ(mofText(TCIMValue(true)), "TRUE");
    EXPECT_EQ(mofText(TCIMValue(-5)), "-5");
    EXPECT_EQ(mofText(TCIMValue()), "NULL");
    EXPECT_EQ(mofText(TCIMValue(TCIMChar16("65"))), "'A'");
    EXPECT_EQ(mofText(arrayOf(TType::eString, {TCIMValue("a"), TCIMValue("b")})), R"({"a", "b"})");
}

}  // namespace tool
