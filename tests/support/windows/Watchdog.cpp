#include "tests/support/Watchdog.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdio>
#include <string>

namespace support {

namespace {

// Shortly before the time limit that every test has in CTest.
constexpr DWORD kPatienceMs = 100000;

void CALLBACK sayName(void* name, BOOLEAN /*timedOut*/) {
    std::fprintf(stderr, "%s hangs\n", static_cast<const std::string*>(name)->c_str());
}

/// Gives each test its own time.
class Watchdog : public ::testing::EmptyTestEventListener {
public:
    void OnTestStart(const ::testing::TestInfo& test) override {
        name_ = std::string(test.test_suite_name()) + '.' + test.name();
        CreateTimerQueueTimer(&timer_, nullptr, sayName, &name_, kPatienceMs, 0, WT_EXECUTEONLYONCE);
    }
    void OnTestEnd(const ::testing::TestInfo& /*test*/) override {
        DeleteTimerQueueTimer(nullptr, timer_, INVALID_HANDLE_VALUE);
    }

private:
    std::string name_;
    HANDLE timer_ = nullptr;
};

}  // namespace

void startWatchdog() {
    ::testing::UnitTest::GetInstance()->listeners().Append(new Watchdog);  // GoogleTest owns it
}

}  // namespace support
