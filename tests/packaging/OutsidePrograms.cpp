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

/// Runs a program of others or of ours. OpenPegasus may stand anywhere, and tells nobody where.
support::ProcessResult runWithClientLibrary(const std::vector<std::string>& command,
                                            const std::string& libraries = CLIENT_LIBRARIES) {
    support::ProcessOptions options;
    options.variables["LD_LIBRARY_PATH"] = libraries;
    return support::runProcess(command, options);
}

/// A program that was built by the way given, run against a node. CMake has written into it where the
/// libraries are.
support::ProcessResult runOutside(const std::string& way, const std::string& program,
                                  const std::string& host) {
    const std::vector<std::string> command{
        std::string(OUTSIDE) + "/" + way + "/outside_" + program + PROGRAM_SUFFIX, host};
    return way == "cmake" ? runWithClientLibrary(command)
                          : runWithClientLibrary(
                                command, std::string(kInstalled) + "/" + LIBDIR + ":" + CLIENT_LIBRARIES);
}

support::ProcessResult runInstalled(const std::string& program, const std::string& argument) {
    return runWithClientLibrary({std::string(kInstalled) + "/bin/" + program + PROGRAM_SUFFIX, argument});
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
