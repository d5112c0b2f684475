#include "tools/config/SecretCommand.h"

#include <gmock/gmock.h>

#include <csignal>

#include "tools/common/Failure.h"

namespace tool {

namespace {

/// What asking a program ends with.
std::string failureOf(const std::vector<std::string>& command) {
    try {
        firstLineOf(command);
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.kind(), Failure::Kind::kLocal);
        return failure.what();
    }
    return {};
}

}  // namespace

TEST(SecretCommand, GivesTheFirstLineOfWhatItPrints) {
    EXPECT_EQ(firstLineOf({"printf", "%s\\n", "two words", "other"}), "two words");
    EXPECT_EQ(firstLineOf({"printf", "line\\r\\n"}), "line");
    EXPECT_EQ(firstLineOf({"printf", "no end"}), "no end");
}

TEST(SecretCommand, IsNotReadByAShell) {
    EXPECT_EQ(firstLineOf({"echo", "$HOME;", "`id`"}), "$HOME; `id`");
}

TEST(SecretCommand, MayPrintMoreThanAPipeHolds) {
    EXPECT_EQ(firstLineOf({"sh", "-c", "echo first; head -c 300000 /dev/zero"}), "first");
}

TEST(SecretCommand, IsEndedByAClosedPipeAsElsewhere) {
    std::signal(SIGPIPE, SIG_IGN);  // as the program does
    EXPECT_EQ(firstLineOf({"sh", "-c", "trap 'echo handled' PIPE; kill -PIPE $$; echo end"}), "handled")
        << "a shell cannot handle a signal that it was started to ignore";
}

TEST(SecretCommand, IsNamedAndNothingElseWhenItGivesNone) {
    EXPECT_EQ(failureOf({"no-such-program", "geheim"}),
              "password-command 'no-such-program' cannot be run: No such file or directory");
    EXPECT_EQ(failureOf({"sh", "-c", "echo geheim; exit 3"}),
              "password-command 'sh' ended with the status 3");
    EXPECT_EQ(failureOf({"sh", "-c", "echo geheim; kill -KILL $$"}),
              "password-command 'sh' was ended by signal 9");
    EXPECT_EQ(failureOf({"echo"}), "password-command 'echo' printed no password");
}

}  // namespace tool
