// scripts/check-alone on builds of one or two sources.

#include <gtest/gtest.h>

#include <string>

#include "tests/scripts/PlantedTree.h"
#include "tests/support/Process.h"

namespace {

class CheckAlone : public ::testing::Test {
protected:
    /// How a source gets compiled, as a build writes it down.
    std::string CommandFor(const std::string& source) const {
        return R"({"directory": ")" + tree_.Path() + R"(", "file": ")" + source +
               R"(", "command": "c++ -std=c++17 -DTEXT=\"text\" -o nowhere/)" + source + ".o -c " + source +
               R"("})";
    }

    support::ProcessResult Check() const { return support::runProcess({CHECK_ALONE, tree_.Path()}); }

    const PlantedTree tree_{"check-alone"};
};

TEST_F(CheckAlone, TakesSourcesThatIncludeWhatTheyUse) {
    tree_.Write("compile_commands.json", "[" + CommandFor("A.cpp") + "]");
    tree_.Write("A.cpp", "#include <string>\nstd::string text();");
    const auto result = Check();
    EXPECT_EQ(result.out + result.err, "");
    EXPECT_EQ(result.status, 0);
}

TEST_F(CheckAlone, RefusesASourceThatLivesOnWhatAnotherIncludes) {
    tree_.Write("compile_commands.json", "[" + CommandFor("A.cpp") + "," + CommandFor("B.cpp") + "]");
    tree_.Write("A.cpp", "#include <string>\nstd::string a();");
    tree_.Write("B.cpp", "std::string b();");
    const auto result = Check();
    EXPECT_EQ(result.out.find("B.cpp: B.cpp:1:6: error: "), 0U) << result.out;
    EXPECT_EQ(result.out.find("A.cpp"), std::string::npos) << result.out;
    EXPECT_EQ(result.status, 1);
}

TEST_F(CheckAlone, RefusesABuildWithoutSources) {
    tree_.Write("compile_commands.json", "[]");
    EXPECT_EQ(Check().status, 1);
}

}  // namespace
