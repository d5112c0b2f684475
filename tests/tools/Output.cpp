#include "tools/console/Output.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <sstream>

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

TEST_F(OutputTest, TheProgressLineGivesWayOnATerminal) {
    std::ostringstream stream;
    Output output(stream, progress_, true);
    progress_.show("busy");
    output.line("answer");
    EXPECT_EQ(error_.str(), "\rbusy\033[K\r\033[K");
    EXPECT_EQ(stream.str(), "answer\n");
}

TEST_F(OutputTest, TheProgressLineIsCutAndSafe) {
    Progress narrow(error_, true, 6);
    narrow.show(
        "a\x1b"
        "bcdefg");
    EXPECT_EQ(error_.str(), "\ra\\x1…\033[K");
}

TEST_F(OutputTest, ProgressIsShownOnTerminalsOnly) {
    std::ostringstream error;
    {
        Progress none(error, false, 80);
        none.show("busy");
    }
    EXPECT_EQ(error.str(), "");
}

}  // namespace tool
