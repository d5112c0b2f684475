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

TEST(WithoutHidden, EscapesWhatNobodyWouldSee) {
    EXPECT_EQ(withoutHidden(std::string("a\0b", 3)), "a\\u0000b");
    EXPECT_EQ(withoutHidden("\x7f"), "\\u007f");
    EXPECT_EQ(withoutHidden("\xc2\x80\xc2\x9f"), "\\u0080\\u009f");
    EXPECT_EQ(withoutHidden("\xd8\x9c\xe2\x80\x8e"), "\\u061c\\u200e");
    EXPECT_EQ(withoutHidden("\xe2\x80\xae.\xe2\x81\xa6"), "\\u202e.\\u2066");
    EXPECT_EQ(withoutHidden("\xe2\x80\xa8"), "\\u2028");
}

TEST(WithoutHidden, LeavesTheRestAlone) {
    for (const char* text :
         {"", "a\nb\tc\rd\x1b", "40 °C – \"x\" – ت – 日本 😀", "\xe2\x80\xffx\xc2", "\xc2\xa0"}) {
        EXPECT_EQ(withoutHidden(text), text);
    }
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
