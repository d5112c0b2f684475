#include "cimom/common/Xml.h"

#include <gtest/gtest.h>

namespace cimom {
namespace {

std::string defectIn(const std::string& text) {
    pugi::xml_document document;
    const auto defect = parseXml(text, document);
    return defect ? std::to_string(defect->offset) + ": " + defect->what : "";
}

std::string roundTrip(const std::string& text) {
    pugi::xml_document document;
    const auto defect = parseXml(text, document);
    std::string out;
    appendElement(out, firstElement(document));
    return defect ? "defect: " + defect->what : out;
}

TEST(ParseXml, AcceptsDeclarationByteOrderMarkAndComments) {
    EXPECT_EQ(defectIn("\xEF\xBB\xBF<?xml version=\"1.0\"?><!-- & --><A x=\"1\"><B/></A><!-- end -->"), "");
}

TEST(ParseXml, AcceptsTheFiveEntitiesAndCharacterReferences) {
    EXPECT_EQ(defectIn("<A b=\"&lt;&gt;&amp;&quot;&apos;\">&#65;&#x1F600;&#xd7ff;</A>"), "");
}

TEST(ParseXml, TakesAnAmpersandInACdataSectionAsItIs) {
    EXPECT_EQ(roundTrip("<A><![CDATA[a & b < c]]></A>"), "<A>a &amp; b &lt; c</A>");
}

TEST(ParseXml, RefusesStrayAmpersandsAndUnknownEntities) {
    EXPECT_EQ(defectIn("<A>a & b</A>"), "5: an ampersand that starts no known reference");
    EXPECT_NE(defectIn("<A>&nbsp;</A>"), "");
    EXPECT_NE(defectIn("<A>&amp</A>"), "");
    EXPECT_NE(defectIn("<A b=\"&\"/>"), "");
    EXPECT_NE(defectIn("<A>&#;</A>"), "");
    EXPECT_NE(defectIn("<A>&#xG;</A>"), "");
}

TEST(ParseXml, RefusesReferencesToCharactersThatXmlDoesNotAllow) {
    for (const char* reference : {"&#0;", "&#1;", "&#xD800;", "&#xFFFF;", "&#x110000;", "&#99999999;"}) {
        EXPECT_NE(defectIn("<A>" + std::string(reference) + "</A>"), "") << reference;
    }
}

TEST(ParseXml, RefusesControlCharacters) {
    EXPECT_EQ(defectIn("<A>\x01</A>"), "3: a character that XML does not allow");
    EXPECT_NE(defectIn(std::string("<A>\0</A>", 8)), "");
}

TEST(ParseXml, RefusesTextThatIsNotUtf8) {
    EXPECT_EQ(defectIn("<A>\xFF</A>"), "3: not UTF-8");
    EXPECT_NE(defectIn("<A>\xC0\xAF</A>"), "") << "overlong";
    EXPECT_NE(defectIn("<A>\xE0\x80\x80</A>"), "") << "overlong";
    EXPECT_NE(defectIn("<A>\xED\xA0\x80</A>"), "") << "half of a surrogate pair";
    EXPECT_NE(defectIn("<A>\xF5\x80\x80\x80</A>"), "") << "beyond Unicode";
    EXPECT_NE(defectIn("<A/>\xE2\x82"), "") << "cut off";
}

TEST(ParseXml, RefusesWhatIsNotOneElement) {
    EXPECT_NE(defectIn(""), "");
    EXPECT_NE(defectIn("   "), "");
    EXPECT_NE(defectIn("text"), "");
    EXPECT_NE(defectIn("<A></B>"), "");
    EXPECT_NE(defectIn("<A>"), "");
    EXPECT_EQ(defectIn("<A/><B/>"), "5: a second root element");
}

TEST(ParseXml, RefusesNestingBeyondItsLimit) {
    std::string open;
    std::string close;
    for (int i = 0; i < kMaxXmlDepth; ++i) {
        open += "<A>";
        close += "</A>";
    }
    EXPECT_EQ(defectIn(open + close), "");
    EXPECT_EQ(defectIn("<A>" + open + close + "</A>"), "0: elements nested too deep");
}

TEST(ParseXml, SurvivesAHundredThousandOpenElements) {
    std::string text;
    for (int i = 0; i < 100000; ++i) {
        text += "<A>";
    }
    EXPECT_NE(defectIn(text), "");
}

TEST(AppendElement, KeepsTheTextOfAnElementToTheLetter) {
    EXPECT_EQ(roundTrip("<VALUE>  two  blanks </VALUE>"), "<VALUE>  two  blanks </VALUE>");
    EXPECT_EQ(roundTrip("<VALUE> </VALUE>"), "<VALUE> </VALUE>");
    EXPECT_EQ(roundTrip("<VALUE>a&#13;b\nc</VALUE>"), "<VALUE>a&#13;b\nc</VALUE>");
}

TEST(AppendElement, PutsTextAndCdataTogether) {
    EXPECT_EQ(roundTrip("<VALUE>a<![CDATA[<b>]]> c</VALUE>"), "<VALUE>a&lt;b&gt; c</VALUE>");
}

TEST(AppendElement, LeavesOutBlanksBetweenElements) {
    EXPECT_EQ(roundTrip("<A>\n  <B x='1'/>\n  <C/>\n</A>"), "<A><B x=\"1\"></B><C></C></A>");
}

TEST(AppendAttribute, EscapesWhatAReaderWouldChange) {
    std::string out;
    appendAttribute(out, "a", "<\"&>\n\t'");
    EXPECT_EQ(out, " a=\"&lt;&quot;&amp;&gt;&#10;&#9;'\"");
}

}  // namespace
}  // namespace cimom
