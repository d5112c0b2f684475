#include "cimxml/wire/XmlScan.h"

#include <gtest/gtest.h>

#include <string>

#include "cimxml/wire/WireError.h"

namespace cimxml_test {
namespace {

using cimxml::scanXml;
using cimxml::WireError;

constexpr std::size_t noLimit = std::size_t(-1);

/// Offset at which a text is refused, or -1.
int refusedAt(const std::string& text) {
    try {
        scanXml(text, noLimit);
    } catch (const WireError& error) {
        const std::string what = error.what();
        EXPECT_EQ(what.rfind("XML at offset ", 0), 0U) << what;
        return std::stoi(what.substr(14));
    }
    return -1;
}

TEST(XmlScan, TakesEveryCharacterThatXmlAllows) {
    EXPECT_EQ(refusedAt("\t\n\r ~\x7F"), -1);
    EXPECT_EQ(
        refusedAt(
            "\xC2\x80 \xDF\xBF \xE0\xA0\x80 \xED\x9F\xBF \xEE\x80\x80 \xF0\x90\x80\x80 \xF4\x8F\xBF\xBF"),
        -1);
}

TEST(XmlScan, RefusesControlCharacters) {
    for (char c = 0; c < ' '; ++c) {
        const bool allowed = c == '\t' || c == '\n' || c == '\r';
        EXPECT_EQ(refusedAt(std::string("ab") + c), allowed ? -1 : 2) << static_cast<int>(c);
    }
}

TEST(XmlScan, RefusesWhatIsNoUtf8) {
    for (const char* text :
         {"\x80", "\xBF", "\xC0\x80", "\xC1\xBF", "\xC3", "\xC3(", "\xE0\x80\x80", "\xE2\x82", "\xED\xA0\x80",
          "\xF0\x80\x80\x80", "\xF0\x9F\x98", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF"}) {
        EXPECT_EQ(refusedAt(std::string("abc") + text), 3) << text;
    }
}

TEST(XmlScan, RefusesReferencesToWhatIsNoXmlCharacter) {
    EXPECT_EQ(refusedAt("&#9;&#xA;&#13;&#x20;&#xD7FF;&#xE000;&#x10FFFF;&#0065;"), -1);
    for (const char* text : {"&#0;", "&#8;", "&#x1f;", "&#xD800;", "&#xDFFF;", "&#x110000;", "&#99999999999;",
                             "&#;", "&#x;", "&#65", "&#6x;", "&#xG;"}) {
        EXPECT_EQ(refusedAt(std::string("a") + text), 1) << text;
    }
}

TEST(XmlScan, LooksForNoReferencesInCdata) {
    EXPECT_EQ(refusedAt("<![CDATA[&#0;]]>"), -1);
    EXPECT_EQ(refusedAt("<![CDATA[&#0;]]>&#0;"), 16);
    EXPECT_EQ(refusedAt("<![CDATA[&#0;"), -1) << "the parser will miss the end";
}

TEST(XmlScan, CountsElementsAndAttributes) {
    EXPECT_EQ(scanXml("<?xml version='1.0'?><!-- x --><a b='c'><d/></a>", noLimit).nodes, 4U);
    EXPECT_NO_THROW(scanXml("<a b='c'/>", 2));
    EXPECT_THROW(scanXml("<a b='c'/>", 1), WireError);
}

TEST(XmlScan, NoticesWhatMayInterruptAText) {
    EXPECT_FALSE(scanXml("<?xml version='1.0'?><a>b</a>", noLimit).mixed);
    EXPECT_TRUE(scanXml("<a>b<!-- c --></a>", noLimit).mixed);
    EXPECT_TRUE(scanXml("<a><![CDATA[b]]></a>", noLimit).mixed);
}

// Long texts are looked at many bytes at a time: whatever it is has to be seen wherever it stands.

TEST(XmlScan, SeesWhatIsSpecialAnywhereInALongText) {
    for (const std::string& special : {std::string(1, '\0'), std::string("\x1F"), std::string("&#0;"),
                                       std::string("\xFF"), std::string("\xE2\x82")}) {
        for (int place = 0; place < 300; ++place) {
            const auto before = static_cast<std::size_t>(place);
            EXPECT_EQ(refusedAt(std::string(before, 'a') + special + std::string(400 - before, 'b')), place);
        }
    }
}

TEST(XmlScan, TakesEveryCharacterAnywhereInALongText) {
    for (const char* text :
         {"\t", "\r\n", "&#x20;", "&amp;", "\xC3\xA4", "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "\x7F"}) {
        for (std::size_t before = 0; before < 300; ++before) {
            EXPECT_EQ(refusedAt(std::string(before, 'a') + text + std::string(400 - before, 'b')), -1)
                << text;
        }
    }
}

TEST(XmlScan, CountsNodesAnywhereInALongText) {
    for (std::size_t before = 0; before < 300; ++before) {
        const std::string around(before, ' ');
        const std::string behind(400 - before, ' ');
        EXPECT_EQ(scanXml(around + "<a b='c'><d/></a>" + behind, noLimit).nodes, 3U) << before;
        EXPECT_NO_THROW(scanXml(around + "<a b='c'/>" + behind, 2));
        EXPECT_EQ(scanXml(around + "<?xml version='1.0'?>" + behind, noLimit).nodes, 1U) << before;
    }
}

TEST(XmlScan, TellsWhereALongTextHasTooManyNodes) {
    const std::string text = std::string(500, ' ') + "<a b='c'/><d/>" + std::string(500, ' ');
    EXPECT_NO_THROW(scanXml(text, 3));
    try {
        scanXml(text, 2);
        ADD_FAILURE() << "was taken";
    } catch (const WireError& error) {
        EXPECT_STREQ(error.what(),
                     "XML at offset 510: the answer exceeds the limit on elements and attributes");
    }
}

TEST(XmlScan, NoticesACommentAnywhereInALongText) {
    for (std::size_t before = 0; before < 300; ++before) {
        EXPECT_TRUE(
            scanXml(std::string(before, 'a') + "<!-- c -->" + std::string(400 - before, 'b'), noLimit).mixed);
    }
}

}  // namespace
}  // namespace cimxml_test
