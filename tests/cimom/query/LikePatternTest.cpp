#include "cimom/query/LikePattern.h"

#include <gtest/gtest.h>

namespace cimom {
namespace {

bool matches(const char* pattern, const std::string& text) {
    return LikePattern(pattern).matches(text);
}

TEST(LikePattern, MatchesTheWholeTextToTheLetter) {
    EXPECT_TRUE(matches("abc", "abc"));
    EXPECT_FALSE(matches("abc", "ABC"));
    EXPECT_FALSE(matches("abc", "abcd"));
    EXPECT_FALSE(matches("abc", "ab"));
    EXPECT_TRUE(matches("", ""));
    EXPECT_FALSE(matches("", "a"));
}

TEST(LikePattern, PercentStandsForAnyCharacters) {
    EXPECT_TRUE(matches("%", ""));
    EXPECT_TRUE(matches("a%", "a"));
    EXPECT_TRUE(matches("a%c", "abcbc"));
    EXPECT_FALSE(matches("a%c", "abcb"));
    EXPECT_TRUE(matches("%b%b%", "abab"));
    EXPECT_FALSE(matches("%b%b%", "aba"));
    EXPECT_TRUE(matches("%%", "x"));
}

TEST(LikePattern, UnderscoreStandsForOneCharacter) {
    EXPECT_TRUE(matches("a_c", "abc"));
    EXPECT_FALSE(matches("a_c", "ac"));
    EXPECT_FALSE(matches("_", ""));
}

TEST(LikePattern, BracketsStandForOneOfTheirCharacters) {
    EXPECT_TRUE(matches("[a-cx]", "b"));
    EXPECT_TRUE(matches("[a-cx]", "x"));
    EXPECT_FALSE(matches("[a-cx]", "d"));
    EXPECT_FALSE(matches("[a-cx]", "-"));
    EXPECT_TRUE(matches("[^a-c]", "d"));
    EXPECT_FALSE(matches("[^a-c]", "b"));
    EXPECT_TRUE(matches("100[%]", "100%"));
    EXPECT_FALSE(matches("100[%]", "1000"));
    EXPECT_TRUE(matches("[-]", "-"));
    EXPECT_TRUE(matches("[a", "[a")) << "a bracket that nothing closes is one";
}

TEST(LikePattern, ManyPercentsTakeNoMoreThanTheProductOfTheLengths) {
    std::string pattern;
    for (int i = 0; i < 50; ++i) {
        pattern += "%a";
    }
    EXPECT_FALSE(matches((pattern + "b").c_str(), std::string(5000, 'a')));
}

}  // namespace
}  // namespace cimom
