#include <Pegasus/Common/String.h>

#include "ApiTesting.h"

using namespace Pegasus;

TEST(ModelString, FormatsTextsOfAnyLength) {
    const std::string longText(1000, 'x');
    String text;
    text.appendPrintf("%s%d", longText.c_str(), 7);
    EXPECT_EQ(utf8(text), longText + "7");
}

TEST(ModelString, AppendsPartsOfItself) {
    String text("abcdef");
    for (int i = 0; i < 10; ++i)
        text.append(text.getChar16Data() + 1, 3);
    EXPECT_EQ(utf8(text), "abcdefbcdbcdbcdbcdbcdbcdbcdbcdbcdbcd");
}

TEST(ModelString, UnpairedSurrogatesBecomeReplacementCharacters) {
    const Char16 lone[] = {Char16('a'), Char16(0xD800), Char16('b'), Char16(0xDC00), Char16(0xD801)};
    EXPECT_EQ(utf8(String(lone, 5)),
              "a\xEF\xBF\xBD"
              "b\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(ModelString, KeepsCharactersBehindANul) {
    const String text("a\0b", 3);
    EXPECT_EQ(text.size(), 3u);
    EXPECT_EQ(text.find(Char16('b')), 2u);
    EXPECT_TRUE(text == String("a\0b", 3));
    EXPECT_FALSE(text == String("a"));
    EXPECT_FALSE(String::equalNoCase(text, String("a\0c", 3)));
}

TEST(ModelString, MovesTheCharacters) {
    String source("abc");
    const Char16* const data = source.getChar16Data();
    String target(std::move(source));
    EXPECT_EQ(target.getChar16Data(), data);
    String assigned;
    assigned = std::move(target);
    EXPECT_EQ(assigned.getChar16Data(), data);
}
