#include "tools/common/Utf8.h"

#include <gtest/gtest.h>

namespace tool {

TEST(Utf8, ReadsCodePointsOfEveryLength) {
    const std::string text = "aé€😀";
    EXPECT_EQ(codePointAt(text, 0).value, U'a');
    EXPECT_EQ(codePointAt(text, 1).value, U'é');
    EXPECT_EQ(codePointAt(text, 3).value, U'€');
    EXPECT_EQ(codePointAt(text, 6).value, U'😀');
    EXPECT_EQ(codePointAt(text, 6).size, 4U);
    EXPECT_EQ(lengthOf(text), 4U);
}

TEST(Utf8, TakesMalformedBytesOneByOne) {
    for (const std::string text :
         {"\x80", "\xc3", "\xc0\xaf", "\xed\xa0\x80", "\xf5\x80\x80\x80", "\xe2\x28\xa1"}) {
        EXPECT_FALSE(codePointAt(text, 0).valid) << text;
        EXPECT_EQ(codePointAt(text, 0).size, 1U) << text;
    }
}

TEST(Utf8, WritesWhatItReads) {
    for (const char32_t value : {U'a', U'é', U'€', U'😀'}) {
        const std::string text = toUtf8(value);
        EXPECT_EQ(codePointAt(text, 0).value, value);
        EXPECT_EQ(codePointAt(text, 0).size, text.size());
    }
}

TEST(Utf8, ReplacesWhatIsNoCharacter) {
    EXPECT_EQ(toUtf8(0xD800), "\xEF\xBF\xBD");
    EXPECT_EQ(toUtf8(0x110000), "\xEF\xBF\xBD");
}

}  // namespace tool
