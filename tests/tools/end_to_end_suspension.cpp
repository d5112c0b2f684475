// The program that is stopped while it asks for a password, and goes on.

#ifndef _WIN32  // where no program is stopped

#include <fcntl.h>
#include <gmock/gmock.h>
#include <termios.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <functional>
#include <sstream>
#include <thread>

#include "tests/support/Process.h"
#include "tests/support/TestMachine.h"

namespace tool {

namespace {

using NQELVSK20::TestMachine;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr const char* kTyped = "s3cret-w0rd";

bool becomesTrue(const std::function<bool()>& condition) {
    for (int i = 0; i < 2000 && !condition(); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return condition();
}

/// The program at its prompt, on a terminal of its own.
class AtThePrompt : public ::testing::Test {
protected:
    AtThePrompt()
        : process_({CIMHTTP_PROGRAM, "--node", "admin@" + machine_.Host(0), "classes"}, onTerminal()) {}

    static TestMachine::Options withLogin() {
        TestMachine::Options options;
        options.credentials = cimom::Credentials{"admin", kTyped};
        return options;
    }

    static support::ProcessOptions onTerminal() {
        support::ProcessOptions options;
        options.terminal = true;
        options.variables["CIMHTTP_PASSWORD"] = std::nullopt;
        return options;
    }

    std::string prompt() const { return "Password of admin at " + machine_.Host(0) + ": "; }
    std::string file(const std::string& name) const {
        return "/proc/" + std::to_string(process_.id()) + '/' + name;
    }

    bool isStopped() const {
        std::ostringstream text;
        text << std::ifstream(file("stat")).rdbuf();
        return text.str().find(") T ") != std::string::npos;
    }

    /// Whether its terminal shows what is typed.
    bool hasEcho() const {
        const int terminal = open(file("fd/0").c_str(), O_RDONLY | O_NOCTTY | O_CLOEXEC);
        termios modes{};
        EXPECT_EQ(tcgetattr(terminal, &modes), 0);
        close(terminal);
        return (modes.c_lflag & static_cast<tcflag_t>(ECHO)) != 0;
    }

    /// What a shell does for itself.
    void switchEchoOn() const {
        const int terminal = open(file("fd/0").c_str(), O_RDONLY | O_NOCTTY | O_CLOEXEC);
        termios modes{};
        tcgetattr(terminal, &modes);
        modes.c_lflag |= static_cast<tcflag_t>(ECHO);
        tcsetattr(terminal, TCSANOW, &modes);
        close(terminal);
    }

    void expectAnswerTo(const std::string& secret) {
        process_.type(secret + "\n");
        const support::ProcessResult result = process_.wait();
        EXPECT_EQ(result.status, 0) << result.out;
        EXPECT_THAT(result.out, HasSubstr("CIM_ManagedElement\r\n"));
        EXPECT_THAT(result.out, Not(HasSubstr(secret)));
        EXPECT_NE(result.out.find(prompt()), result.out.rfind(prompt()))
            << "it is asked again: " << result.out;
    }

    TestMachine machine_{withLogin()};
    support::Process process_;
};

}  // namespace

TEST_F(AtThePrompt, CtrlZGivesTheEchoBackAndGoingOnTakesItAway) {
    ASSERT_TRUE(process_.readUntil(prompt()));
    EXPECT_FALSE(hasEcho());
    process_.type("\x1a");
    ASSERT_TRUE(becomesTrue([&] { return isStopped(); }));
    EXPECT_TRUE(hasEcho());
    process_.signal(SIGCONT);
    ASSERT_TRUE(becomesTrue([&] { return !hasEcho(); }));
    expectAnswerTo(kTyped);
}

TEST_F(AtThePrompt, AProgramThatOthersStoppedHidesWhatIsTypedAgain) {
    ASSERT_TRUE(process_.readUntil(prompt()));
    process_.signal(SIGSTOP);
    ASSERT_TRUE(becomesTrue([&] { return isStopped(); }));
    switchEchoOn();
    process_.signal(SIGCONT);
    ASSERT_TRUE(becomesTrue([&] { return !hasEcho(); }));
    expectAnswerTo(kTyped);
}

}  // namespace tool

#endif
