// Programs of others, built with what is installed, and the installed programs themselves.

#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/Process.h"
#include "tests/support/TestMachine.h"

namespace {

using NQELVSK20::TestMachine;
using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr const char* kInstalled = INSTALLED;

/// A program that was built by the way given, run against a node; it finds the libraries where they are now.
support::ProcessResult runOutside(const std::string& way, const std::string& program,
                                  const std::string& host) {
    support::ProcessOptions options;
    if (way == "pkg-config") {
        options.variables["LD_LIBRARY_PATH"] = std::string(kInstalled) + "/" + LIBDIR;
    }
    return support::runProcess(
        {std::string(OUTSIDE) + "/" + way + "/outside_" + program + PROGRAM_SUFFIX, host}, options);
}

support::ProcessResult runInstalled(const std::string& program, const std::string& argument) {
    return support::runProcess({std::string(kInstalled) + "/bin/" + program + PROGRAM_SUFFIX, argument});
}

[[maybe_unused]] void expectThatClientAsks(const std::string& way) {
    const TestMachine machine(1);
    const support::ProcessResult result = runOutside(way, "client", machine.Host(0));
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_THAT(result.out, HasSubstr("CIM_ManagedElement"));
}

void expectThatHostLoadsThePlugin(const std::string& way) {
    const TestMachine machine(1);
    const support::ProcessResult result = runOutside(way, "host", machine.Host(0));
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_THAT(result.out, StartsWith("CIM_ComputerSystem.CreationClassName="));
}

}  // namespace

#ifdef CIMXML_IS_INSTALLED
TEST(OutsidePrograms, BuiltWithTheCMakePackageOfTheClientLibraryAskAServer) {
    expectThatClientAsks("cmake");
}
#endif

TEST(OutsidePrograms, BuiltWithTheCMakePackageOfThePluginAreItsHost) {
    expectThatHostLoadsThePlugin("cmake");
}

#ifndef _WIN32
#ifdef CIMXML_IS_INSTALLED
TEST(OutsidePrograms, BuiltWithPkgConfigAndTheClientLibraryAskAServer) {
    expectThatClientAsks("pkg-config");
}
#endif

TEST(OutsidePrograms, BuiltWithPkgConfigAndThePluginAreItsHost) {
    expectThatHostLoadsThePlugin("pkg-config");
}
#endif

TEST(InstalledPrograms, FindTheirLibrariesWhereverTheyWereMoved) {
    for (const std::string program : {"cimhttp", "cimom"}) {
        const support::ProcessResult result = runInstalled(program, "--version");
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_THAT(support::linesOf(result.out), Contains(program + " " + CIMHTTP_VERSION));
    }
}

#ifdef MANUAL_PAGES_ARE_MADE
TEST(InstalledPrograms, HaveManualPagesOfTheirVersion) {
    for (const std::string program : {"cimhttp", "cimom"}) {
        const std::string page = std::string(kInstalled) + "/share/man/man1/" + program + ".1.gz";
        const support::ProcessResult result = support::runProcess({"gzip", "-dc", page});
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_THAT(result.out, HasSubstr(".TH \"" + program + "\" \"1\""));
        EXPECT_THAT(result.out, HasSubstr(std::string("\"cimhttp ") + CIMHTTP_VERSION + "\""));
    }
}
#endif

#ifndef _WIN32
TEST(InstalledPrograms, HaveCompletionWhereTheShellsLook) {
    for (const std::string file : {"bash-completion/completions/cimhttp", "bash-completion/completions/cimom",
                                   "zsh/site-functions/_cimhttp", "zsh/site-functions/_cimom"}) {
        EXPECT_TRUE(std::filesystem::exists(std::string(kInstalled) + "/share/" + file)) << file;
    }
}
#endif
