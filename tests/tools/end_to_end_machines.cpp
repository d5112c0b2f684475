// Machines that a person gave names.

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/TestMachine.h"
#include "tests/tools/support/Program.h"
#include "tests/tools/support/TemporaryFile.h"
#include "tests/tools/support/TemporaryFolder.h"

namespace tool {

namespace {

using NQELVSK20::TestMachine;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using Arguments = std::vector<std::string>;

TestMachine::Options withPassword(const char* password) {
    TestMachine::Options options;
    options.credentials = cimom::Credentials{"anna", password};
    return options;
}

/// A section for the machine, with further entries.
std::string rack7(const TestMachine& machine, const std::string& entries) {
    return "[rack7]\nnodes = [\"anna@" + machine.Host(0) + "\"]\n" + entries + "\n";
}

Outcome askRack7(const std::string& config, Arguments further = {}) {
    const TemporaryFile file(config);
    Arguments arguments{"--config", file.path(), "--machine", "rack7", "classes", "CIM_ManagedElement"};
    arguments.insert(arguments.end(), further.begin(), further.end());
    return run(arguments);
}

/// A person's folder of configurations.
class MachinesOfAPerson : public ::testing::Test {
protected:
    MachinesOfAPerson() {
        std::filesystem::create_directories(folder_.path() / "cimhttp");
        const auto file = folder_.path() / "cimhttp" / "machines.toml";
        std::ofstream(file) << "[attic]\nnodes = [\"127.0.0.1:80\"]\n[rack7]\nnodes = [\"a\"]\n";
        std::filesystem::permissions(file, std::filesystem::perms::owner_read);
    }

    Outcome Run(Arguments arguments) const {
        return Program(std::move(arguments)).with("XDG_CONFIG_HOME", folder_.path().string()).run();
    }

    const TemporaryFolder folder_;
};

}  // namespace

TEST(MachineByName, IsAskedWithThePasswordOfItsFile) {
    TestMachine machine(withPassword("geheim"));
    const TemporaryFile secret("geheim\n");
    const Outcome outcome = askRack7(rack7(machine, "password-file = '" + secret.path() + "'"));
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.err, "");
    EXPECT_THAT(outcome.out, HasSubstr("CIM_"));
}

TEST(MachineByName, IsAskedWithThePasswordThatACommandPrints) {
    TestMachine machine(withPassword("geheim"));
    const TemporaryFile secret("geheim\nand more\n");
    const Outcome outcome =
        askRack7(rack7(machine, "password-command = ['cat', '" + secret.path() + "']\ntransport = 'https'"));
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.err, "");
}

TEST(MachineByName, IsNotAskedWhenItsCommandFails) {
    TestMachine machine(withPassword("geheim"));
    const Outcome outcome = askRack7(rack7(machine, "password-command = 'cat /no/such/file'"));
    EXPECT_EQ(outcome.status, 6);
    EXPECT_THAT(outcome.err, HasSubstr("cimhttp: password-command 'cat' ended with the status 1"));
    EXPECT_EQ(machine.Server().connectionsAccepted(), 0U);
}

TEST(MachineByName, GivesWayToWhatTheCommandLineSays) {
    TestMachine machine(withPassword("geheim"));
    const TemporaryFile secret("geheim\n");
    const std::string config = rack7(machine,
                                     "namespace = 'root/none'\ntransport = 'http'\n"
                                     "password-command = 'no-such-program'");
    EXPECT_EQ(askRack7(config, {"--password-file", secret.path()}).status, 1) << "no such namespace";
    const Outcome outcome = askRack7(
        config, {"--password-file", secret.path(), "--namespace", "root/cimv2", "--transport", "https"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.err, "");
}

TEST(MachineByName, DoesNotGoWithNodes) {
    TestMachine machine;
    const Outcome outcome = askRack7(rack7(machine, ""), {"--node", machine.Host(0)});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "cimhttp: --machine NAME has its nodes: --node does not go with it\n");
}

TEST(MachineByName, NeedsANameWhereAConfigurationIsNamed) {
    const Outcome outcome = run({"--config", "x", "classes"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err, HasSubstr("which machine is meant?"));
}

TEST(MachineByName, IsNotLookedForInAFileThatHoldsAPassword) {
    const Outcome outcome = askRack7("[rack7]\nnodes = ['a']\npassword = 'geheim'\n");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err, HasSubstr("line 3: a password does not belong here"));
    EXPECT_THAT(outcome.err, Not(HasSubstr("geheim")));
}

TEST_F(MachinesOfAPerson, AreKnownWhereConfigurationsStand) {
    const Outcome outcome = Run({"--machine", "attic", "classes"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err, HasSubstr("cimhttp: machine attic: --node 127.0.0.1:80"))
        << "a host has no port";
}

TEST_F(MachinesOfAPerson, AreNamedWhenOneIsMistyped) {
    const Outcome outcome = Run({"--machine", "rakc7", "classes"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err, HasSubstr("knows no machine 'rakc7'; did you mean rack7?"));
}

TEST_F(MachinesOfAPerson, AreCompleted) {
    EXPECT_THAT(linesOf(Run({"--complete", "--machine", ""}).out), ElementsAre("attic", "rack7"));
    EXPECT_THAT(linesOf(Run({"--complete", "--machine=r"}).out), ElementsAre("--machine=rack7"));
    const TemporaryFile other("[other]\nnodes = ['a']\n");
    EXPECT_THAT(linesOf(Run({"--complete", "--config", other.path(), "--machine", ""}).out),
                ElementsAre("other"));
    EXPECT_THAT(linesOf(Run({"--complete", "--config", "/no/such", "--machine", ""}).out), IsEmpty());
}

TEST(MachineByName, IsUnknownWhereNobodyHasAConfiguration) {
    const TemporaryFolder empty;
    const Outcome outcome =
        Program({"--machine", "rack7", "classes"}).with("XDG_CONFIG_HOME", empty.path().string()).run();
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err, HasSubstr("cimhttp: no machine has a name: there is no '"));
}

}  // namespace tool
