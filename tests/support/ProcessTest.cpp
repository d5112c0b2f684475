#include "tests/support/Process.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>

namespace support {
namespace {

TEST(Process, GivesStatusAndBothOutputs) {
    const ProcessResult result = runProcess({"sh", "-c", "echo out; echo err >&2; exit 3"});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.signal, 0);
    EXPECT_EQ(result.out, "out\n");
    EXPECT_EQ(result.err, "err\n");
}

TEST(Process, OneThatDoesNotEndIsKilledAndSaysWhatItDid) {
    ProcessOptions options;
    options.longestRun = std::chrono::milliseconds(200);
    const ProcessResult result = runProcess({"sleep", "1000"}, options);
    EXPECT_EQ(result.signal, SIGKILL);
    EXPECT_EQ(result.err.rfind("[killed after 200 ms, in ", 0), 0U) << result.err;
    EXPECT_NE(result.err.find("(sleep)"), std::string::npos) << result.err;
}

TEST(Process, OneThatGoesOnAfterItsOutputsAreClosedIsKilledToo) {
    ProcessOptions options;
    options.longestRun = std::chrono::milliseconds(200);
    const ProcessResult result = runProcess({"sh", "-c", "exec sleep 1000 >/dev/null 2>&1"}, options);
    EXPECT_EQ(result.signal, SIGKILL);
    EXPECT_EQ(result.err.rfind("[killed after 200 ms, in ", 0), 0U) << result.err;
}

TEST(Process, OneThatCannotBeStartedIsNamed) {
    try {
        runProcess({"no-such-program"});
        ADD_FAILURE() << "started";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "cannot start no-such-program: No such file or directory");
    }
}

TEST(Process, VariablesAreSetAndTakenAway) {
    ProcessOptions options;
    options.variables = {{"ADDED", "yes"}, {"HOME", std::nullopt}};
    EXPECT_EQ(runProcess({"sh", "-c", "echo $ADDED ${HOME-no}"}, options).out, "yes no\n");
}

TEST(Process, HoldsNoneOfTheTestsFilesOpen) {
    const int handle = open("/dev/null", O_RDONLY);
    const std::string there = "/proc/$$/fd/" + std::to_string(handle);
    EXPECT_EQ(runProcess({"sh", "-c", "test -e /proc/$$/fd/0 && test ! -e " + there}).status, 0);
    close(handle);
}

}  // namespace
}  // namespace support
