#include "tools/common/Nearest.h"

#include <gtest/gtest.h>

namespace tool {

namespace {

const std::vector<std::string> kWords = {"names", "classes", "class", "CIM_Fan", "CIM_FanSpeed", "get"};

}  // namespace

TEST(Nearest, IsTheWordWithTheFewestMistakes) {
    EXPECT_EQ(nearest("nmaes", kWords), "names") << "swapped";
    EXPECT_EQ(nearest("name", kWords), "names") << "missing";
    EXPECT_EQ(nearest("classess", kWords), "classes") << "too many";
    EXPECT_EQ(nearest("clabs", kWords), "class") << "wrong";
    EXPECT_EQ(nearest("cim_fam", kWords), "CIM_Fan") << "in any case";
    EXPECT_EQ(nearest("gte", kWords), "get");
}

TEST(Nearest, IsNoneForAnotherWord) {
    EXPECT_EQ(nearest("fly", kWords), std::nullopt);
    EXPECT_EQ(nearest("CIM_Processor", kWords), std::nullopt);
    EXPECT_EQ(nearest("ge", {"go", "set"}), "go") << "short words bear one mistake";
    EXPECT_EQ(nearest("ab", {"cd"}), std::nullopt);
    EXPECT_EQ(nearest("", kWords), std::nullopt);
}

TEST(Nearest, IsSuggestedInAMessage) {
    EXPECT_EQ(suggestion("nmaes", kWords), "; did you mean names?");
    EXPECT_EQ(suggestion("fly", kWords), "");
}

}  // namespace tool
