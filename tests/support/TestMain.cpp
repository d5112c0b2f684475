// main() of every test program: GoogleTest's, with a watchdog that says where a test hangs.

#include <gmock/gmock.h>

#include "tests/support/Watchdog.h"

int main(int argc, char** argv) {
    ::testing::InitGoogleMock(&argc, argv);
    support::startWatchdog();
    return RUN_ALL_TESTS();
}
