#include "tools/machine/Credentials.h"

#include <gtest/gtest.h>

#include "tests/tools/support/TemporaryFile.h"
#include "tools/common/UsageError.h"

namespace tool {

namespace {

std::vector<Node> threeNodes() {
    return {{"a", "anna", ""}, {"b", "berta", ""}, {"c", "anna", ""}};
}

PasswordSources fromFile(const TemporaryFile& file) {
    PasswordSources sources;
    sources.file = file.path();
    return sources;
}

}  // namespace

TEST(Credentials, OneLineHoldsForAllNodes) {
    const TemporaryFile file("secret\n");
    auto nodes = threeNodes();
    addPasswords(nodes, fromFile(file));
    for (const Node& node : nodes) {
        EXPECT_EQ(node.password, "secret");
    }
}

TEST(Credentials, ANodeWithoutAUserIsGivenNone) {
    const TemporaryFile file("secret\n");
    std::vector<Node> nodes{{"a", "anna", ""}, {"b", "", ""}};
    addPasswords(nodes, fromFile(file));
    EXPECT_EQ(nodes[0].password, "secret");
    EXPECT_EQ(nodes[1].password, "");
}

TEST(Credentials, OneLineANodeIsInNodeOrder) {
    const TemporaryFile file("one\r\ntwo words\r\n\xc3\xa4");  // no newline at the end
    auto nodes = threeNodes();
    addPasswords(nodes, fromFile(file));
    EXPECT_EQ(nodes[0].password, "one");
    EXPECT_EQ(nodes[1].password, "two words");
    EXPECT_EQ(nodes[2].password, "ä");
}

TEST(Credentials, AnotherNumberOfLinesIsRefusedWithoutShowingThem) {
    const TemporaryFile file("geheim1\ngeheim2\n");
    auto nodes = threeNodes();
    try {
        addPasswords(nodes, fromFile(file));
        FAIL();
    } catch (const UsageError& error) {
        const std::string text = error.what();
        EXPECT_NE(text.find("2 lines"), std::string::npos) << text;
        EXPECT_EQ(text.find("geheim"), std::string::npos) << text;
    }
}

TEST(Credentials, AnEmptyOrUnreadableFileIsRefused) {
    const TemporaryFile empty("");
    auto nodes = threeNodes();
    EXPECT_THROW(addPasswords(nodes, fromFile(empty)), UsageError);
    PasswordSources missing;
    missing.file = empty.path() + ".missing";
    EXPECT_THROW(addPasswords(nodes, missing), UsageError);
    PasswordSources folder;
    folder.file = "/";
    EXPECT_THROW(addPasswords(nodes, folder), UsageError);
}

TEST(Credentials, AFileNeedsAUser) {
    const TemporaryFile file("secret\n");
    std::vector<Node> nodes{{"a", "", ""}};
    EXPECT_THROW(addPasswords(nodes, fromFile(file)), UsageError);
}

TEST(Credentials, TheVariableHoldsForEveryNodeWithAUser) {
    PasswordSources sources;
    sources.variable = "secret";
    std::vector<Node> nodes{{"a", "anna", ""}, {"b", "", ""}};
    addPasswords(nodes, sources);
    EXPECT_EQ(nodes[0].password, "secret");
    EXPECT_EQ(nodes[1].password, "");
}

TEST(Credentials, TheFileGoesBeforeTheVariableAndThatBeforeThePerson) {
    const TemporaryFile file("from file\n");
    int asked = 0;
    PasswordSources sources = fromFile(file);
    sources.variable = "from variable";
    sources.ask = [&](const std::string&) {
        ++asked;
        return std::string("typed");
    };
    auto nodes = threeNodes();
    addPasswords(nodes, sources);
    EXPECT_EQ(nodes[0].password, "from file");
    sources.file.clear();
    addPasswords(nodes, sources);
    EXPECT_EQ(nodes[0].password, "from variable");
    EXPECT_EQ(asked, 0);
}

TEST(Credentials, ThePersonIsAskedOnceForEachUser) {
    std::vector<std::string> prompts;
    PasswordSources sources;
    sources.ask = [&](const std::string& prompt) {
        prompts.push_back(prompt);
        return prompt;
    };
    auto nodes = threeNodes();
    nodes.push_back({"d", "", ""});
    addPasswords(nodes, sources);
    EXPECT_EQ(prompts, (std::vector<std::string>{"Password of anna at a, c: ", "Password of berta at b: "}));
    EXPECT_EQ(nodes[2].password, nodes[0].password);
    EXPECT_EQ(nodes[3].password, "");
}

TEST(Credentials, WithoutAnySourceNodesWithAUserLackTheirPassword) {
    auto nodes = threeNodes();
    nodes.push_back({"d", "", ""});
    addPasswords(nodes, {});
    EXPECT_TRUE(nodes[0].lacksPassword);
    EXPECT_FALSE(nodes[3].lacksPassword);
    EXPECT_EQ(nodes[0].password, "");
}

}  // namespace tool
