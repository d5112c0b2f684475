#include "tools/config/ConfigText.h"

#include <gmock/gmock.h>

#include <optional>
#include <utility>

#include "tools/config/ConfigFault.h"

namespace tool {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using ListOfTexts = std::vector<std::string>;

template <typename CONTENT>
CONTENT contentOf(const ConfigSection& section, const std::string& key) {
    return std::get<CONTENT>(section.values.at(key).content);
}

/// The fault that a text is refused with; one of line 0 when it is taken.
ConfigFault faultIn(const std::string& text) {
    try {
        parseConfig(text);
    } catch (const ConfigFault& fault) {
        return fault;
    }
    return {0, "no fault"};
}

}  // namespace

TEST(ConfigText, HasSectionsWithTextsNumbersAndLists) {
    const auto sections = parseConfig(
        "# my machines\r\n"
        "[rack7]  # the old one\r\n"
        "nodes = [\"admin@10.0.0.1\", 'admin@10.0.0.2']\r\n"
        "connect-timeout=30\r\n"
        "\r\n"
        "[ \"rack 8.a\" ]\r\n"
        "user = \"an\\\"na\\\\\"");
    ASSERT_EQ(sections.size(), 2U);
    EXPECT_EQ(sections[0].name, "rack7");
    EXPECT_EQ(sections[0].line, 2U);
    EXPECT_THAT(contentOf<ListOfTexts>(sections[0], "nodes"),
                ElementsAre("admin@10.0.0.1", "admin@10.0.0.2"));
    EXPECT_EQ(contentOf<std::size_t>(sections[0], "connect-timeout"), 30U);
    EXPECT_EQ(sections[0].values.at("connect-timeout").line, 4U);
    EXPECT_EQ(sections[1].name, "rack 8.a");
    EXPECT_EQ(contentOf<std::string>(sections[1], "user"), "an\"na\\");
}

TEST(ConfigText, TakesABackslashInSingleQuotesAsItIs) {
    const auto sections = parseConfig("[a]\npassword-file = 'C:\\keys\\a'\n");
    EXPECT_EQ(contentOf<std::string>(sections.at(0), "password-file"), "C:\\keys\\a");
}

TEST(ConfigText, HasListsThatGoOverSeveralLines) {
    const auto sections =
        parseConfig("[a]\nnodes = [\n  \"x\",  # the first\n\n  \"y#z\",\n]\nuser = \"u\"\n");
    EXPECT_THAT(contentOf<ListOfTexts>(sections.at(0), "nodes"), ElementsAre("x", "y#z"));
    EXPECT_EQ(sections[0].values.at("user").line, 7U);
}

TEST(ConfigText, MayBeEmptyOrBeginWithAByteOrderMark) {
    EXPECT_TRUE(parseConfig("").empty());
    EXPECT_TRUE(parseConfig("\n  # nothing yet").empty());
    EXPECT_EQ(parseConfig("\xEF\xBB\xBF[a]").at(0).name, "a");
}

TEST(ConfigText, NamesTheLineOfWhatCannotBeMeant) {
    for (const auto& [text, line] : std::vector<std::pair<std::string, std::size_t>>{
             {"user = \"x\"\n", 1},
             {"[a]\nuser \"x\"\n", 2},
             {"[a]\nuser = x\n", 2},
             {"[a]\nuser = \"x\" y\n", 2},
             {"[a]\nuser = \"x\n\"\n", 2},
             {"[a]\nuser = 'x", 2},
             {"[a]\nuser = \"\\n\"\n", 2},
             {"[a]\nuser = \"x\x01\"\n", 2},
             {"[a]\nuser = \"x\"\nuser = \"y\"\n", 3},
             {"[a]\n[b]\n\n[a]\n", 4},
             {"[a\n", 1},
             {"[]\n", 1},
             {"[a.b]\n", 1},
             {"[a]\n= 3\n", 2},
             {"[a]\nnodes = [\"x\"\n\"y\"]\n", 3},
             {"[a]\nnodes = [\"x\", 3]\n", 2},
             {"[a]\nnodes = [\n\"x\",\n", 4},
             {"[a]\nconnect-timeout = 3s\n", 2},
             {"[a]\nconnect-timeout = 99999999999999999999999\n", 2}}) {
        EXPECT_EQ(faultIn(text).line(), line) << text;
    }
}

TEST(ConfigText, ShowsNothingOfAValueThatCannotBeMeant) {
    for (const char* text : {"[a]\nuser = geheim\n", "[a]\nuser = \"x\" geheim\n", "[a]\nuser = \"geheim\n",
                             "[a]\nuser = 3geheim\n", "[a]\nuser = \"geheim\\n\"\n"}) {
        EXPECT_THAT(faultIn(text).what(), Not(HasSubstr("geheim")));
    }
}

}  // namespace tool
