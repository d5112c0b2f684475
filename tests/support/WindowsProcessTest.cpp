#include <gtest/gtest.h>
#include <windows.h>

#include <csignal>
#include <stdexcept>

#include "tests/support/Process.h"

namespace support {
namespace {

TEST(Process, GivesStatusAndBothOutputs) {
    const ProcessResult result = runProcess({"cmd", "/c", "echo out& echo err>&2& exit 3"});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.signal, 0);
    EXPECT_EQ(result.out, "out\r\n");
    EXPECT_EQ(result.err, "err\r\n");
}

TEST(Process, OneThatDoesNotEndIsKilled) {
    ProcessOptions options;
    options.longestRun = std::chrono::milliseconds(1000);
    const ProcessResult result = runProcess({"ping", "-n", "1000", "127.0.0.1"}, options);
    EXPECT_EQ(result.signal, SIGTERM);
    EXPECT_EQ(result.err, "[killed after 1000 ms]\n");
}

TEST(Process, OneThatCannotBeStartedIsNamed) {
    try {
        runProcess({"no-such-program"});
        ADD_FAILURE() << "started";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "cannot start no-such-program: error 2");
    }
}

TEST(Process, VariablesAreSetAndTakenAway) {
    ProcessOptions options;
    options.variables = {{"ADDED", "yes"}, {"USERNAME", std::nullopt}};
    EXPECT_EQ(runProcess({"cmd", "/c", "echo %ADDED% %USERNAME%"}, options).out, "yes %USERNAME%\r\n");
}

TEST(Process, TakesEachWordAsItIs) {
    // Windows hands a program one line, which its start-up code takes apart again.
    for (const std::string word : {"two words", "say \"yes\"", "C:\\end\\", "a\\\"b", ""}) {
        EXPECT_EQ(runProcess({ECHO_WORD, word}).out, word) << word;
    }
}

}  // namespace
}  // namespace support
