#include "connection/client/Waiting.h"

#include <gtest/gtest.h>

#ifdef __linux__
#include <sys/time.h>

#include <chrono>
#include <csignal>
#endif

namespace NQELVSK20 {
namespace {

#ifdef __linux__

volatile std::sig_atomic_t alarms = 0;

TEST(WaitingTest, ASignalDoesNotCutThePauseShort) {
    ReplacePause({});
    struct sigaction counting {};
    counting.sa_handler = [](int) { alarms = alarms + 1; };
    struct sigaction before {};
    ASSERT_EQ(sigaction(SIGALRM, &counting, &before), 0);
    const itimerval soon{{0, 0}, {0, 10000}};
    ASSERT_EQ(setitimer(ITIMER_REAL, &soon, nullptr), 0);
    const auto start = std::chrono::steady_clock::now();
    ReconnectPause(100);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(100));
    EXPECT_EQ(alarms, 1);
    sigaction(SIGALRM, &before, nullptr);
}

#endif

}  // namespace
}  // namespace NQELVSK20
