#include "tools/common/SafeText.h"

#include <gtest/gtest.h>

namespace tool {

TEST(SafeText, LeavesOrdinaryTextAlone) {
    EXPECT_EQ(safeText("Fan 1 – 40 °C \\ \"ok\" 日本 😀"), "Fan 1 – 40 °C \\ \"ok\" 日本 😀");
    EXPECT_EQ(safeText(""), "");
}

TEST(SafeText, EscapesWhatATerminalWouldObey) {
    EXPECT_EQ(safeText("\x1b[2J"), "\\x1b[2J");
    EXPECT_EQ(safeText("a\nb\tc\rd"), "a\\nb\\tc\\rd");
    EXPECT_EQ(safeText(std::string("\0\x07\x7f", 3)), "\\x00\\x07\\x7f");
    EXPECT_EQ(safeText("\xc2\x9b"
                       "31m"),
              "\\x9b31m");
    EXPECT_EQ(safeText("\xe2\x80\xae"), "\\u202e");
    EXPECT_EQ(safeText("\xe2\x80\xa8"), "\\u2028");
}

TEST(SafeText, EscapesBytesThatAreNoUtf8) {
    EXPECT_EQ(safeText("a\xff"
                       "b"),
              "a\\xffb");
    EXPECT_EQ(safeText("\xc3"), "\\xc3");
}

TEST(SafeText, CutsByCharactersAndMarksTheCut) {
    EXPECT_EQ(cutTo("abcdef", 4), "abc…");
    EXPECT_EQ(cutTo("äöüß", 3), "äö…");
    EXPECT_EQ(cutTo("äöü", 3), "äöü");
    EXPECT_EQ(cutTo("abc", 0), "abc");
    EXPECT_EQ(cutTo("abc", 1), "…");
}

TEST(SafeText, PadsByCharacters) {
    EXPECT_EQ(padTo("ä", 3), "ä  ");
    EXPECT_EQ(padTo("abc", 2), "abc");
}

}  // namespace tool
