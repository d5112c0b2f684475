#include "cimxml/wire/XmlParse.h"

#include <gtest/gtest.h>

#include <string>

#include "cimxml/wire/WireError.h"

namespace cimxml_test {
namespace {

std::string parseError(std::string text, unsigned maxDepth = 10) {
    pugi::xml_document document;
    try {
        cimxml::parseInPlace(document, text.data(), text.size(), 0, maxDepth);
    } catch (const cimxml::WireError& error) {
        return error.what();
    }
    return "none";
}

TEST(XmlParse, TellsWhereWhatWasExpected) {
    EXPECT_EQ(parseError("<a/>"), "none");
    EXPECT_EQ(parseError("<a><?x</a>"), "XML at offset 9: expected the end of a processing instruction");
    EXPECT_EQ(parseError("<a><!-- x</a>"), "XML at offset 12: expected the end of a comment");
    EXPECT_EQ(parseError("<a><![CDATA[x</a>"), "XML at offset 12: expected the end of a CDATA section");
    EXPECT_EQ(parseError("<!DOCTYPE a [<a/>"), "XML at offset 13: expected a document type declaration");
    EXPECT_EQ(parseError("<a><b </a>"), "XML at offset 6: expected a start tag");
    EXPECT_EQ(parseError("<a b=c/>"), "XML at offset 5: expected an attribute");
    EXPECT_EQ(parseError("<a></a b>"), "XML at offset 7: expected an end tag");
    EXPECT_EQ(parseError("<a></b>"), "XML at offset 5: expected the end tag of the element that is open");
    EXPECT_EQ(parseError("  "), "XML at offset 1: expected an element");
    EXPECT_EQ(parseError("<a><!x></a>"), "XML at offset 5: expected markup");
}

TEST(XmlParse, RefusesElementsBelowTheGreatestDepth) {
    EXPECT_EQ(parseError("<a><b><c/><d/></b><e/></a>", 3), "none");
    EXPECT_EQ(parseError("<a><b/><b><c/></b></a>", 2),
              "XML at offset 11: elements are nested more than 2 deep");
}

}  // namespace
}  // namespace cimxml_test
