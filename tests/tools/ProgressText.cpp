#include "tools/console/ProgressText.h"

#include <gtest/gtest.h>

namespace tool {

namespace {

using std::chrono::milliseconds;

class ProgressTextTest : public ::testing::Test {
protected:
    std::string after(int passed, std::size_t width = 0) const { return text_.at(at(passed), width); }
    static ProgressText::Time at(int passed) { return ProgressText::Time() + milliseconds(passed); }

    ProgressText text_{at(0)};
};

}  // namespace

TEST_F(ProgressTextTest, ComesAfterHalfASecondAndCountsTheSeconds) {
    text_.begin("instances of CIM_Fan", at(1000));
    EXPECT_EQ(after(1499), "");
    EXPECT_EQ(after(1500), "instances of CIM_Fan");
    EXPECT_EQ(after(1999), "instances of CIM_Fan");
    EXPECT_EQ(after(2000), "instances of CIM_Fan, 1 s");
    EXPECT_EQ(after(64999), "instances of CIM_Fan, 63 s");
}

TEST_F(ProgressTextTest, GoesWithTheRequest) {
    text_.begin("instances of CIM_Fan", at(0));
    text_.end();
    EXPECT_EQ(after(2000), "");
}

TEST_F(ProgressTextTest, TellsTheRequestWithinARequestAndThenTheOuterOneAgain) {
    text_.begin("instances of CIM_Fan", at(0));
    text_.begin("connecting", at(3000));
    EXPECT_EQ(after(4000), "connecting, 1 s");
    text_.end();
    EXPECT_EQ(after(5000), "instances of CIM_Fan, 5 s");
}

TEST_F(ProgressTextTest, TellsHowFarTheWorkHasComeUntilARequestTakesItsTime) {
    text_.note("12 classes");
    EXPECT_EQ(after(499), "") << "quick work shows nothing";
    EXPECT_EQ(after(500), "12 classes");
    text_.begin("definition of class CIM_Fan", at(1000));
    EXPECT_EQ(after(1400), "12 classes");
    EXPECT_EQ(after(1500), "definition of class CIM_Fan");
    text_.end();
    EXPECT_EQ(after(1600), "12 classes");
    text_.note("13 classes");
    EXPECT_EQ(after(1600), "13 classes");
}

TEST_F(ProgressTextTest, IsSafeAndCutToTheWidth) {
    text_.note(
        "a\x1b"
        "bcdefg");
    EXPECT_EQ(after(500), R"(a\x1bbcdefg)");
    EXPECT_EQ(after(500, 6), R"(a\x1…)") << "the last column stays free";
}

}  // namespace tool
