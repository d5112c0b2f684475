#include "cimxml/wire/XmlBlock.h"

#include <gtest/gtest.h>

#include <string>

namespace cimxml_test {
namespace {

using cimxml::XmlBlock;

struct Way {
    const char* name;
    XmlBlock (*look)(const char* text);
};

/// In both ways, the processor's and the plain one.
class AnXmlBlock : public testing::TestWithParam<Way> {
protected:
    /// A block of letters, and one beyond, with `text` in it from `place` on.
    static XmlBlock lookAt(std::size_t place, const std::string& text) {
        std::string block(XmlBlock::size + 1, 'a');
        block.replace(place, text.size(), text);
        block.resize(XmlBlock::size + 1);
        return GetParam().look(block.data());
    }
};

TEST_P(AnXmlBlock, IsOrdinaryWithAnyAsciiCharacterThatStandsForItself) {
    for (char c = '\t'; c < 0x7F; ++c) {
        const bool special = c == '&' || (c < ' ' && c != '\t' && c != '\n' && c != '\r');
        for (std::size_t place = 0; place < XmlBlock::size; ++place) {
            EXPECT_EQ(lookAt(place, {c}).hasSpecial, special) << int{c} << " at " << place;
        }
    }
}

TEST_P(AnXmlBlock, IsSpecialWithAByteThatIsNoAsciiOrNoXml) {
    for (const int byte : {0x00, 0x01, 0x08, 0x0B, 0x1F, 0x80, 0xC3, 0xFF}) {
        for (std::size_t place = 0; place < XmlBlock::size; ++place) {
            EXPECT_TRUE(lookAt(place, {static_cast<char>(byte)}).hasSpecial) << byte << " at " << place;
        }
    }
}

TEST_P(AnXmlBlock, IsSpecialWhereMarkupBeginsThatIsNoTag) {
    for (const std::string markup : {"<!", "<?"}) {
        for (std::size_t place = 0; place < XmlBlock::size; ++place) {
            EXPECT_TRUE(lookAt(place, markup).hasSpecial) << markup << " at " << place;
        }
    }
    EXPECT_FALSE(lookAt(7, "!?</b><b>?!<_").hasSpecial);
}

TEST_P(AnXmlBlock, CountsStartTagsAndEqualsSigns) {
    for (std::size_t place = 0; place < XmlBlock::size; ++place) {
        EXPECT_EQ(lookAt(place, "<b").nodes, 1U) << place;
        EXPECT_EQ(lookAt(place, "</").nodes, 0U) << place;
        EXPECT_EQ(lookAt(place, "=").nodes, 1U) << place;
    }
    EXPECT_EQ(lookAt(3, "<b c='d' e='f'><g/></b>").nodes, 4U);
}

TEST_P(AnXmlBlock, CountsAsManyNodesAsItHasBytes) {
    EXPECT_EQ(lookAt(0, std::string(XmlBlock::size, '=')).nodes, XmlBlock::size);
    EXPECT_EQ(lookAt(0, std::string(XmlBlock::size, '<')).nodes, XmlBlock::size);
}

TEST_P(AnXmlBlock, EndsWhereItEnds) {
    for (const std::string behind : {"=", "<", "&", "\x01", "\xFF"}) {
        EXPECT_EQ(lookAt(XmlBlock::size, behind).nodes, 0U);
        EXPECT_FALSE(lookAt(XmlBlock::size, behind).hasSpecial);
    }
}

INSTANTIATE_TEST_SUITE_P(Ways, AnXmlBlock,
                         testing::Values(Way{"Best", XmlBlock::of}, Way{"Plain", XmlBlock::plainlyOf}),
                         [](const auto& way) { return way.param.name; });

}  // namespace
}  // namespace cimxml_test
