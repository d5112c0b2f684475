#include "tools/program/Monitoring.h"

#include <gtest/gtest.h>

#include <array>
#include <sstream>

#include "tests/tools/support/OutputText.h"
#include "tools/common/Failure.h"

namespace tool {

namespace {

class RunAsMonitor : public ::testing::Test {
protected:
    int run(const std::function<int()>& answer) { return runAsMonitor(answer, text_.output(), notices_); }

    OutputText text_;
    std::ostringstream error_;
    Progress progress_{error_, false, 0};
    Notices notices_{error_, progress_};
};

}  // namespace

TEST_F(RunAsMonitor, PassesTheStatusOn) {
    EXPECT_EQ(run([] { return 2; }), 2);
    EXPECT_EQ(text_.text(), "");
}

TEST_F(RunAsMonitor, WhatGoesWrongIsUnknownAndTold) {
    EXPECT_EQ(run([]() -> int { throw Failure("no | way"); }), 3);
    EXPECT_EQ(text_.text(), "CIMHTTP UNKNOWN - no / way\n");
    EXPECT_EQ(error_.str(), "cimhttp: no | way\n");
}

TEST_F(RunAsMonitor, WhatWasSaidBeforeIsTold) {
    EXPECT_EQ(run([this]() -> int {
                  notices_.fail("refused");
                  throw Failure();
              }),
              3);
    EXPECT_EQ(text_.text(), "CIMHTTP UNKNOWN - refused\n");
}

TEST_F(RunAsMonitor, AReaderThatWentAwayEndsItQuietly) {
    EXPECT_EQ(run([]() -> int { throw OutputClosed(); }), 3);
    EXPECT_EQ(text_.text(), "");
    EXPECT_EQ(error_.str(), "");
}

TEST(IsMonitoring, FindsItsOptionAnywhere) {
    const std::array<const char*, 3> arguments = {"cimhttp", "health", "--nagios"};
    EXPECT_TRUE(isMonitoring(3, arguments.data()));
    EXPECT_FALSE(isMonitoring(2, arguments.data()));
}

}  // namespace tool
