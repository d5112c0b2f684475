#include "tools/console/Output.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <sstream>
#include <thread>

#include "tools/common/Failure.h"

namespace tool {

namespace {

/// A stream buffer that takes nothing, for a reason.
class RefusingBuffer : public std::streambuf {
public:
    explicit RefusingBuffer(int error) : error_(error) {}

protected:
    int_type overflow(int_type) override {
        errno = error_;
        return traits_type::eof();
    }

private:
    int error_;
};

class OutputTest : public ::testing::Test {
protected:
    std::ostringstream error_;
    Progress progress_{error_, true, 80};
};

}  // namespace

TEST_F(OutputTest, AReaderThatWentAwayIsNoFailure) {
    RefusingBuffer buffer(EPIPE);
    std::ostream stream(&buffer);
    Output output(stream, progress_, false);
    EXPECT_THROW(output.line("x"), OutputClosed);
}

TEST_F(OutputTest, AFullDiskIsOne) {
    RefusingBuffer buffer(ENOSPC);
    std::ostream stream(&buffer);
    Output output(stream, progress_, false);
    EXPECT_THROW(output.line("x"), Failure);
}

// On whichever stream, since both may end on one terminal.
TEST_F(OutputTest, TheProgressLineGivesWayAndComesBack) {
    std::ostringstream stream;
    Output output(stream, progress_, false);
    progress_.begin("busy");
    const std::string line = "\rbusy\033[K";
    const std::string wiped = "\r\033[K";
    for (const char* times : {"once", "again"}) {
        const auto shown = [&] {
            output.write("x");
            return error_.str() == line + wiped;
        };
        while (!shown()) {
            std::this_thread::sleep_for(std::chrono::milliseconds(150));
            ASSERT_EQ((line + wiped).rfind(error_.str(), 0), 0U) << times << ": " << error_.str();
        }
        error_.str("");
    }
}

TEST_F(OutputTest, ProgressIsShownOnTerminalsOnly) {
    Progress none(error_, false, 80);
    none.begin("busy");
    EXPECT_FALSE(none.isEnabled());
    EXPECT_TRUE(progress_.isEnabled());
}

}  // namespace tool
