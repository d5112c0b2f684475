#include "cimxml/wire/ValueTexts.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace cimxml_test {
namespace {

using cimxml::nameOfValue;
using cimxml::ValueTexts;

/// The text without its marks `@`, and of each place where one stood whether it lies in a value's text.
std::string placesIn(const std::string& marked) {
    std::string text;
    std::vector<std::size_t> places;
    for (const char c : marked) {
        if (c == '@') {
            places.push_back(text.size());
        }
        text += c == '@' ? '?' : c;
    }
    ValueTexts texts(text);
    std::string found;
    for (const std::size_t place : places) {
        found += texts.contain(place) ? '+' : '-';
    }
    return found;
}

TEST(ValueTexts, AreThoseOfValuesAndKeyValues) {
    EXPECT_EQ(placesIn("<VALUE>@</VALUE>"), "+");
    EXPECT_EQ(placesIn("<KEYVALUE VALUETYPE=\"string\">a@b</KEYVALUE>"), "+");
    EXPECT_EQ(placesIn("<VALUE\n>@</VALUE>"), "+");
    EXPECT_EQ(placesIn("<VALUE>@@ @</VALUE><VALUE>@</VALUE>"), "++++");
    EXPECT_EQ(placesIn("<VALUE>@"), "+") << "the parser will miss the end";
}

TEST(ValueTexts, AreNothingElse) {
    EXPECT_EQ(placesIn("@"), "-");
    EXPECT_EQ(placesIn("@<VALUE></VALUE>@"), "--");
    EXPECT_EQ(placesIn("<VALUE>a</VALUE>@"), "-");
    EXPECT_EQ(placesIn("<VALUE>@</VALUE>@<VALUE>@</VALUE>@"), "+-+-");
    EXPECT_EQ(placesIn("<VALUE.ARRAY>@<VALUE>@</VALUE>@"), "-+-");
    EXPECT_EQ(placesIn("<VALUES>@</VALUES>"), "-");
    EXPECT_EQ(placesIn("<VALUE/>@<VALUE />@"), "--");
    EXPECT_EQ(placesIn("<VALUE@>"), "-");
    EXPECT_EQ(placesIn("<VALUE"), "");
    EXPECT_EQ(placesIn("<VALUE @"), "-");
    EXPECT_EQ(placesIn("<METHODPARAMETER>@"), "-");
}

TEST(ValueTexts, BeginBehindTheTagWhateverItsAttributesHold) {
    EXPECT_EQ(placesIn("<VALUE a=\">@\" b='\">@'>@"), "--+");
    EXPECT_EQ(placesIn("<VALUE a=\">@"), "-");
}

TEST(ValueTexts, GoOnBehindSectionsAndComments) {
    EXPECT_EQ(placesIn("<VALUE>@<![CDATA[<a></VALUE>]]>@<!-- @ -->@</VALUE>@"), "++-+-");
    EXPECT_EQ(placesIn("<VALUE><![CDATA[a]]><![CDATA[b]]>@<!-- <VALUE> -->@"), "++");
    EXPECT_EQ(placesIn("<VALUE><!-- @"), "-");
    EXPECT_EQ(placesIn("<VALUE>a<b>@"), "-");
}

TEST(ValueTexts, BelongToWhatIsNamedBeforeThem) {
    const std::string text =
        "<I CLASSNAME=\"c\"><P NAME=\"one\"><V>x</V></P><P NAME='two' T=\"t\"><V>y</V></P>";
    EXPECT_EQ(nameOfValue(text, text.find('x')), "one");
    EXPECT_EQ(nameOfValue(text, text.find('y')), "two");
    EXPECT_EQ(nameOfValue("<V>x</V>", 3), "");
    EXPECT_EQ(nameOfValue("<P NAME=", 8), "");
    EXPECT_EQ(nameOfValue("<P NAME=\"ab", 11), "ab");
}

}  // namespace
}  // namespace cimxml_test
