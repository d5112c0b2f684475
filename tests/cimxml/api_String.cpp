#include <Pegasus/Common/String.h>

#include <sstream>
#include <string>

#include "ApiTesting.h"

using namespace Pegasus;

namespace {

const char* const kUmlaut = "\xC3\xA4";         // U+00E4
const char* const kEuro = "\xE2\x82\xAC";       // U+20AC
const char* const kEmoji = "\xF0\x9F\x98\x80";  // U+1F600

String repeated(const char* text, int count) {
    String result;
    for (int i = 0; i < count; ++i)
        result.append(String(text));
    return result;
}

}  // namespace

TEST(String, IsEmptyByDefault) {
    const String empty;
    EXPECT_EQ(empty.size(), 0u);
    EXPECT_EQ(utf8(empty), "");
    EXPECT_EQ(empty.getChar16Data()[0], Char16(0));
    EXPECT_TRUE(empty == String::EMPTY);
    EXPECT_TRUE(empty == "");
}

TEST(String, HoldsAscii) {
    const String text("Hello");
    EXPECT_EQ(text.size(), 5u);
    EXPECT_EQ(utf8(text), "Hello");
}

TEST(String, CountsUtf16CodeUnits) {
    EXPECT_EQ(String(kUmlaut).size(), 1u);
    EXPECT_EQ(String(kEuro).size(), 1u);
    EXPECT_EQ(String(kEmoji).size(), 2u);
}

TEST(String, DecodesUtf8) {
    EXPECT_EQ(Uint16(String(kUmlaut)[0]), 0xE4);
    EXPECT_EQ(Uint16(String(kEuro)[0]), 0x20AC);
    const String emoji(kEmoji);
    EXPECT_EQ(Uint16(emoji[0]), 0xD83D);
    EXPECT_EQ(Uint16(emoji[1]), 0xDE00);
}

TEST(String, DecodesUtf8BehindAnyNumberOfAsciiCharacters) {
    for (std::size_t count = 0; count < 20; ++count) {
        const std::string prefix(count, 'a');
        const String text((prefix + kEuro + "z").c_str());
        ASSERT_EQ(text.size(), count + 2);
        EXPECT_EQ(Uint16(text[static_cast<Uint32>(count)]), 0x20AC);
        EXPECT_EQ(utf8(text), prefix + kEuro + "z");
    }
}

TEST(String, EncodesUtf8) {
    const std::string all = std::string("a") + kUmlaut + kEuro + kEmoji + "z";
    EXPECT_EQ(utf8(String(all.c_str())), all);
}

TEST(String, ReplacesSurrogatesThatWereEncodedOneByOne) {
    EXPECT_EQ(utf8(String("a\xED\xA0\xBD\xED\xB8\x80z")), "a\xEF\xBF\xBD\xEF\xBF\xBDz");
}

TEST(String, RejectsMalformedUtf8WithPlaceAndBytes) {
    EXPECT_EQ(messageThrownBy([] {
                  String(
                      "ab\x80"
                      "cd");
              }),
              "The byte sequence starting at index 2 is not valid UTF-8 encoding: ab 0x80 0x63 0x64");
    EXPECT_EQ(messageThrownBy([] { String("\xFF"); }),
              "The byte sequence starting at index 0 is not valid UTF-8 encoding:  0xFF");
}

TEST(String, ShowsAtMostFortyCharactersBeforeAndElevenBytesOfMalformedUtf8) {
    const std::string before(50, 'a');
    EXPECT_EQ(messageThrownBy([&] { String((before + "\xFF" + std::string(20, 'b')).c_str()); }),
              "The byte sequence starting at index 50 is not valid UTF-8 encoding: " + std::string(40, 'a') +
                  " 0xFF 0x62 0x62 0x62 0x62 0x62 0x62 0x62 0x62 0x62 0x62");
}

TEST(String, RejectsEveryKindOfMalformedUtf8) {
    for (const char* bytes :
         {"\xC0\x80", "\xC1\xBF", "\xC3", "\xC3(", "\xE2\x82", "\xE2(\xA1", "\xE0\x80\x80",
          "\xF0\x80\x80\x80", "\xF0\x9F\x98", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xBF", "\xFE"}) {
        messageThrownBy([&] { (void)String(bytes); });
        String text("old");
        messageThrownBy([&] { text.assign(bytes); });
    }
}

TEST(String, OfPrefixTakesThatMany) {
    EXPECT_EQ(utf8(String("Hello", 2)), "He");
    EXPECT_EQ(utf8(String(String("Hello"), 3)), "Hel");
    EXPECT_EQ(utf8(String(String("Hello"), 5)), "Hello");
    EXPECT_EQ(utf8(String("Hello", 0)), "");
    expectOutOfBounds([] { String(String("Hello"), 6); });
}

TEST(String, TakesUtf16) {
    const Char16 data[] = {Char16('A'), Char16(0x20AC), Char16('B'), Char16(0)};
    EXPECT_EQ(utf8(String(data)), std::string("A") + kEuro + "B");
    EXPECT_EQ(utf8(String(data, 1)), "A");
    String text;
    text.assign(data);
    EXPECT_EQ(text.size(), 3u);
    text.assign(data, 2);
    EXPECT_EQ(text.size(), 2u);
}

TEST(String, RejectsNullPointers) {
    EXPECT_EQ(messageThrownBy([] { String(static_cast<const char*>(nullptr), 1); }), "null pointer");
    EXPECT_EQ(messageThrownBy([] { String(static_cast<const Char16*>(nullptr)); }), "null pointer");
}

TEST(String, AssignsAllForms) {
    String text;
    text.assign("one");
    EXPECT_EQ(utf8(text), "one");
    text.assign("twofold", 3);
    EXPECT_EQ(utf8(text), "two");
    text.assign(String("three"));
    EXPECT_EQ(utf8(text), "three");
    text = "four";
    EXPECT_EQ(utf8(text), "four");
}

TEST(String, CopiesChangeIndependently) {
    const String original("Hello");
    String changed(original);
    changed[0] = Char16('J');
    String appended(original);
    appended.append(Char16('!'));
    String lower(original);
    lower.toLower();
    String removed(original);
    removed.remove(0, 1);
    String cleared(original);
    cleared.clear();
    EXPECT_EQ(utf8(original), "Hello");
    EXPECT_EQ(utf8(changed), "Jello");
    EXPECT_EQ(utf8(appended), "Hello!");
    EXPECT_EQ(utf8(lower), "hello");
    EXPECT_EQ(utf8(removed), "ello");
    EXPECT_EQ(cleared.size(), 0u);
}

TEST(String, CopiesShareTheirCharacters) {
    const String original("Hello");
    const String copy(original);
    EXPECT_EQ(copy.getChar16Data(), original.getChar16Data());
}

TEST(String, SurvivesSelfAssignment) {
    String text("Hello");
    const String& same = text;
    text = same;
    text.assign(same);
    EXPECT_EQ(utf8(text), "Hello");
}

TEST(String, IndexReadsUpToTheFinalNul) {
    const String text("ab");
    EXPECT_EQ(Uint16(text[1]), 'b');
    EXPECT_EQ(Uint16(text[2]), 0);
    expectOutOfBounds([&] { (void)text[3]; });
    String writable("ab");
    writable[1] = Char16(0x20AC);
    EXPECT_EQ(utf8(writable), std::string("a") + kEuro);
    expectOutOfBounds([&] { (void)writable[3]; });
    EXPECT_EQ(Uint16(String::EMPTY[0]), 0);
}

TEST(String, AppendsAllForms) {
    const Char16 data[] = {Char16('1'), Char16('2')};
    String text("a");
    text.append(Char16('b')).append(data, 2).append(String("cd")).append(data, 0);
    EXPECT_EQ(utf8(text), "ab12cd");
}

TEST(String, AppendsItself) {
    String text("ab");
    for (int i = 0; i < 4; ++i)
        text.append(text);
    EXPECT_TRUE(text == repeated("ab", 16));
}

TEST(String, GrowsCharacterByCharacter) {
    String text;
    for (int i = 0; i < 1000; ++i)
        text.append(Char16('x'));
    EXPECT_EQ(utf8(text), std::string(1000, 'x'));
}

TEST(String, RemovesRanges) {
    String text("Hello World");
    text.remove(5, 1);
    EXPECT_EQ(utf8(text), "HelloWorld");
    text.remove(5);
    EXPECT_EQ(utf8(text), "Hello");
    text.remove(5, 0);
    text.remove(0);
    EXPECT_EQ(text.size(), 0u);
}

TEST(String, RemoveBeyondTheEndIsOutOfBounds) {
    String text("Hello");
    expectOutOfBounds([&] { text.remove(3, 3); });
    expectOutOfBounds([&] { text.remove(6, 1); });
    EXPECT_EQ(utf8(text), "Hello");
}

TEST(String, SubStringIsPermissive) {
    const String text("Hello");
    EXPECT_EQ(utf8(text.subString(1, 3)), "ell");
    EXPECT_EQ(utf8(text.subString(3)), "lo");
    EXPECT_EQ(utf8(text.subString(3, 100)), "lo");
    EXPECT_EQ(utf8(text.subString(5)), "");
    EXPECT_EQ(utf8(text.subString(100, 1)), "");
}

TEST(String, FindsCharacters) {
    const String text("abcabc");
    EXPECT_EQ(text.find(Char16('b')), 1u);
    EXPECT_EQ(text.find(2, Char16('b')), 4u);
    EXPECT_EQ(text.find(5, Char16('b')), PEG_NOT_FOUND);
    EXPECT_EQ(text.find(6, Char16('b')), PEG_NOT_FOUND);
    EXPECT_EQ(text.find(Char16('x')), PEG_NOT_FOUND);
    expectOutOfBounds([&] { (void)text.find(7, Char16('b')); });
    EXPECT_EQ(text.reverseFind(Char16('b')), 4u);
    EXPECT_EQ(text.reverseFind(Char16('a')), 3u);
    EXPECT_EQ(text.reverseFind(Char16('x')), PEG_NOT_FOUND);
    EXPECT_EQ(String().find(Char16('x')), PEG_NOT_FOUND);
}

TEST(String, FindsTexts) {
    const String text("abcabd");
    EXPECT_EQ(text.find(String("abd")), 3u);
    EXPECT_EQ(text.find(String("abcabd")), 0u);
    EXPECT_EQ(text.find(String("abx")), PEG_NOT_FOUND);
    EXPECT_EQ(text.find(String("abcabde")), PEG_NOT_FOUND);
    EXPECT_EQ(text.find(String()), PEG_NOT_FOUND);
}

TEST(String, LowersAsciiLettersOnly) {
    String text((std::string("AZ[`az") + "\xC3\x84" + "09").c_str());  // U+00C4 stays
    text.toLower();
    EXPECT_EQ(utf8(text), std::string("az[`az") + "\xC3\x84" + "09");
}

TEST(String, ComparesByCodeUnits) {
    EXPECT_EQ(String::compare(String("abc"), String("abc")), 0);
    EXPECT_LT(String::compare(String("abc"), String("abd")), 0);
    EXPECT_GT(String::compare(String("b"), String("abc")), 0);
    EXPECT_EQ(String::compare(String("ab"), String("abc")), -1);
    EXPECT_EQ(String::compare(String("abc"), String("ab")), 1);
    EXPECT_LT(String::compare(String("A"), String("a")), 0);
}

TEST(String, ComparesPrefixes) {
    EXPECT_EQ(String::compare(String("abcx"), String("abcy"), 3), 0);
    EXPECT_LT(String::compare(String("abcx"), String("abcy"), 4), 0);
    EXPECT_EQ(String::compare(String("ab"), String("ab"), 10), 0);
    EXPECT_LT(String::compare(String("ab"), String("abc"), 10), 0);
    EXPECT_GT(String::compare(String("abc"), String("ab"), 10), 0);
    EXPECT_EQ(String::compare(String("x"), String("y"), 0), 0);
}

TEST(String, ComparesWithoutRegardToCase) {
    EXPECT_EQ(String::compareNoCase(String("HeLLo"), String("hEllO")), 0);
    EXPECT_LT(String::compareNoCase(String("ABC"), String("abd")), 0);
    EXPECT_GT(String::compareNoCase(String("abD"), String("ABC")), 0);
    EXPECT_EQ(String::compareNoCase(String("AB"), String("abc")), -1);
    EXPECT_TRUE(String::equalNoCase(String("HeLLo"), String("hEllO")));
    EXPECT_FALSE(String::equalNoCase(String("HeLLo"), String("hEllOo")));
    EXPECT_FALSE(String::equalNoCase(String("["), String("{")));
    EXPECT_FALSE(String::equalNoCase(String("\xC3\x84"), String("\xC3\xA4")));
    EXPECT_TRUE(String::equal(String("a"), String("a")));
    EXPECT_FALSE(String::equal(String("a"), String("A")));
}

TEST(String, OperatorsAgreeWithComparison) {
    const String a("a");
    const String b("b");
    EXPECT_TRUE(a == "a");
    EXPECT_TRUE("a" == a);
    EXPECT_TRUE(a != b);
    EXPECT_TRUE(a < b && a <= b && b > a && b >= a);
    EXPECT_TRUE(a <= a && a >= a);
    EXPECT_FALSE(a < a || a > a || a == b);
}

TEST(String, Concatenates) {
    EXPECT_EQ(utf8(String("ab") + String("cd")), "abcd");
    EXPECT_EQ(utf8(String() + String("x")), "x");
    EXPECT_EQ(utf8(String("x") + String()), "x");
}

TEST(String, FormatsLikePrintf) {
    String text("n=");
    text.appendPrintf("%u %s|", 42u, "six");
    EXPECT_EQ(utf8(text), "n=42 six|");
}

TEST(String, StreamsLatinAsBytesAndTheRestEscaped) {
    std::ostringstream out;
    out << String((std::string("ab") + kUmlaut + kEuro).c_str());
    EXPECT_EQ(out.str(), "ab\xE4\\x20AC");
}

TEST(String, ReservedCapacityKeepsCharactersInPlace) {
    String text("ab");
    text.reserveCapacity(100);
    const Char16* const data = text.getChar16Data();
    for (int i = 0; i < 90; ++i)
        text.append(Char16('x'));
    EXPECT_EQ(text.getChar16Data(), data);
    EXPECT_EQ(utf8(text), "ab" + std::string(90, 'x'));
}

TEST(CString, IsNullByDefault) {
    EXPECT_EQ(static_cast<const char*>(CString()), nullptr);
}

TEST(CString, IsUtf8FromTheFirstCharacterThatIsNoAscii) {
    EXPECT_STREQ(static_cast<const char*>(String("a\x7F").getCString()), "a\x7F");
    EXPECT_STREQ(static_cast<const char*>(String("\xC2\x80").getCString()), "\xC2\x80");
    EXPECT_STREQ(static_cast<const char*>(String("\xE2\x82\xAC").getCString()), "\xE2\x82\xAC");
}

TEST(CString, OwnsItsText) {
    CString copy;
    {
        const CString text = String("abc").getCString();
        CString other(text);
        copy = other;
        const CString& same = copy;
        copy = same;
    }
    EXPECT_STREQ(static_cast<const char*>(copy), "abc");
    EXPECT_STREQ(static_cast<const char*>(String().getCString()), "");
}
