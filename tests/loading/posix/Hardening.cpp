// What a release is built with, since it reads from strangers.

#include <gmock/gmock.h>

#include "tests/support/Process.h"

namespace support {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

/// What the linker put into a file: its segments and what the loader is told.
std::string layoutOf(const std::string& path) {
    return runProcess({"readelf", "-dlW", path}).out;
}

class Hardening : public ::testing::TestWithParam<const char*> {};

TEST_P(Hardening, TablesAreReadOnlyOnceTheProgramRunsAndNoStackIsCode) {
    const std::string layout = layoutOf(GetParam());
    EXPECT_THAT(layout, HasSubstr("GNU_RELRO"));
    EXPECT_THAT(layout, HasSubstr("BIND_NOW"));
    EXPECT_THAT(layout, HasSubstr("GNU_STACK"));
    EXPECT_THAT(layout, Not(HasSubstr("RWE")));
}

TEST_P(Hardening, TheStackIsWatched) {
    EXPECT_THAT(runProcess({"nm", "-D", GetParam()}).out, HasSubstr("__stack_chk_fail"));
}

TEST(HardenedPlugin, BoundsOfCopiesAreChecked) {
    EXPECT_THAT(runProcess({"nm", "-D", CIMHTTP_LIBRARY}).out, HasSubstr("_chk@"))
        << "the plug-in formats its log lines into a buffer";
}

INSTANTIATE_TEST_SUITE_P(Files, Hardening,
                         ::testing::Values(CIMHTTP_LIBRARY, CIMHTTP_PROGRAM, CIMOM_PROGRAM));

}  // namespace
}  // namespace support
