#include "tools/config/MachineConfig.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "tests/tools/support/TemporaryFile.h"
#include "tests/tools/support/TemporaryFolder.h"
#include "tools/common/UsageError.h"

namespace tool {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

MachineSettings settingsIn(const std::string& content) {
    const TemporaryFile file(content);
    return MachineConfig(file.path()).machine("rack7");
}

/// What a configuration is refused with, without the file's name; empty: it is taken.
std::string complaintOf(const std::string& content) {
    const TemporaryFile file(content);
    try {
        const MachineConfig config(file.path());
    } catch (const UsageError& error) {
        const std::string text = error.what();
        const std::string name = "'" + file.path() + "' ";
        EXPECT_EQ(text.substr(0, name.size()), name);
        return text.substr(std::min(name.size(), text.size()));
    }
    return {};
}

std::string complaintAboutKey(const std::string& entry) {
    return complaintOf("[rack7]\nnodes = [\"a\"]\n" + entry + "\n");
}

}  // namespace

TEST(MachineConfig, KnowsAllThatAMachineIsAskedWith) {
    const MachineSettings machine = settingsIn(
        "[rack7]\nnodes = [\"admin@10.0.0.1\", \"10.0.0.2\"]\nuser = \"anna\"\ntransport = \"auto\"\n"
        "namespace = \"root/x\"\nconnect-timeout = 3600\npassword-command = \"pass show rack7\"\n");
    EXPECT_THAT(machine.nodes, ElementsAre("admin@10.0.0.1", "10.0.0.2"));
    EXPECT_EQ(machine.user, "anna");
    EXPECT_EQ(machine.transport, Transport::kAuto);
    EXPECT_EQ(machine.nameSpace, "root/x");
    EXPECT_EQ(machine.connectTimeoutS, 3600U);
    EXPECT_THAT(machine.passwordCommand, ElementsAre("pass", "show", "rack7"));
    EXPECT_EQ(machine.passwordFile, "");
}

TEST(MachineConfig, LeavesOpenWhatAMachineDoesNotSay) {
    const MachineSettings machine = settingsIn("[rack7]\nnodes = [\"a\"]\n");
    EXPECT_EQ(machine.user, "");
    EXPECT_FALSE(machine.transport);
    EXPECT_FALSE(machine.nameSpace);
    EXPECT_FALSE(machine.connectTimeoutS);
    EXPECT_THAT(machine.passwordCommand, IsEmpty());
}

TEST(MachineConfig, TakesACommandsWordsAsTheyAreFromAList) {
    EXPECT_THAT(
        settingsIn("[rack7]\nnodes = [\"a\"]\npassword-command = [\"my pass\", \"$HOME\"]\n").passwordCommand,
        ElementsAre("my pass", "$HOME"));
}

TEST(MachineConfig, LooksForAPasswordFileBesideItself) {
    const TemporaryFile file("[rack7]\nnodes = [\"a\"]\npassword-file = \"rack7.password\"\n");
    EXPECT_EQ(MachineConfig(file.path()).machine("rack7").passwordFile,
              (std::filesystem::path(file.path()).parent_path() / "rack7.password").string());
}

TEST(MachineConfig, RefusesAPasswordWithoutShowingIt) {
    const std::string complaint = complaintAboutKey("password = \"geheim\"");
    EXPECT_THAT(complaint, HasSubstr("line 3: a password does not belong here"));
    EXPECT_THAT(complaint, HasSubstr("password-file"));
    EXPECT_THAT(complaint, Not(HasSubstr("geheim")));
}

TEST(MachineConfig, RefusesUnknownKeysAndNamesTheNearest) {
    EXPECT_EQ(complaintAboutKey("usr = \"x\""), "line 3: there is no key usr; did you mean user?");
}

TEST(MachineConfig, RefusesValuesThatCannotBeMeant) {
    for (const char* entry :
         {"user = 3", "user = \"\"", "transport = \"ftp\"", "transport = \"HTTPS\"", "namespace = [\"a\"]",
          "connect-timeout = 0", "connect-timeout = 3601", "connect-timeout = \"3\"", "password-file = \"\"",
          "password-command = \" \"", "password-command = []", "password-command = [\"\"]"}) {
        EXPECT_THAT(complaintAboutKey(entry), HasSubstr("line 3: ")) << entry;
    }
    EXPECT_THAT(complaintOf("[rack7]\nnodes = \"a\"\n"), HasSubstr("line 2: nodes"));
    EXPECT_THAT(complaintOf("[rack7]\nnodes = []\n"), HasSubstr("line 2: nodes"));
}

TEST(MachineConfig, RefusesAMachineWithoutNodesOrWithTwoSourcesOfPasswords) {
    EXPECT_EQ(complaintOf("\n[rack7]\nuser = \"anna\"\n"), "line 2: machine rack7 has no nodes");
    EXPECT_THAT(complaintAboutKey("password-file = \"a\"\npassword-command = \"b\""),
                HasSubstr("line 1: machine rack7 has a password-file and a password-command"));
}

TEST(MachineConfig, NamesTheNearestOfAnUnknownMachine) {
    const TemporaryFile file("[rack7]\nnodes = [\"a\"]\n[attic]\nnodes = [\"a\"]\n");
    const MachineConfig config(file.path());
    EXPECT_THAT(config.names(), ElementsAre("attic", "rack7"));
    try {
        config.machine("rakc7");
        FAIL();
    } catch (const UsageError& error) {
        EXPECT_EQ(error.what(), "'" + file.path() + "' knows no machine 'rakc7'; did you mean rack7?");
    }
}

TEST(MachineConfig, NamesAFileThatCannotBeRead) {
    const TemporaryFolder folder;
    for (const std::string& path : {folder.path().string(), (folder.path() / "missing").string()}) {
        try {
            const MachineConfig config(path);
            FAIL() << path;
        } catch (const UsageError& error) {
            EXPECT_THAT(error.what(), HasSubstr("'" + path + "' cannot be read"));
        }
    }
}

}  // namespace tool
