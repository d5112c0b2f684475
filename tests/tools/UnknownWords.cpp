#include "tools/program/UnknownWords.h"

#include <gtest/gtest.h>

namespace tool {

namespace {

std::string complaintAbout(const std::vector<std::string>& words, const std::string& command = "") {
    UnknownWords unknown;
    unknown.words = words;
    unknown.options = {"--deep", "--node", "--user"};
    unknown.commands = {"names", "classes"};
    unknown.command = command;
    return unknown.complaint();
}

}  // namespace

TEST(UnknownWords, SuggestTheOptionThatWasMeant) {
    EXPECT_EQ(complaintAbout({"--deeep"}, "classes"), "unknown option --deeep; did you mean --deep?");
    EXPECT_EQ(complaintAbout({"--colour"}, "classes"), "unknown option --colour; cimhttp --help lists all");
    EXPECT_EQ(complaintAbout({"--usr", "x", "-q"}), "unknown option --usr and 1 more; did you mean --user?");
}

TEST(UnknownWords, MayBeOptionsThatStandBeforeTheirCommand) {
    EXPECT_EQ(complaintAbout({"--deep=5"}, "classes"),
              "--deep stands behind the command that it belongs to; cimhttp --help lists all");
}

TEST(UnknownWords, SuggestTheCommandThatWasMeant) {
    EXPECT_EQ(complaintAbout({"nmaes", "CIM_Fan"}), "'nmaes' is no command; did you mean names?");
    EXPECT_EQ(complaintAbout({"fly"}), "there is no such command; cimhttp --help lists all");
    EXPECT_EQ(complaintAbout({}), "a command is missing; cimhttp --help lists all");
}

TEST(UnknownWords, ShowNoValues) {
    EXPECT_EQ(complaintAbout({"--password=geheim"}), "unknown option --password; cimhttp --help lists all");
    EXPECT_EQ(complaintAbout({"-pgeheim"}), "unknown option -p; cimhttp --help lists all");
    EXPECT_EQ(complaintAbout({"--password", "names"}), "unknown option --password; cimhttp --help lists all");
    EXPECT_EQ(complaintAbout({"geheim"}, "names"),
              "1 word too many; cimhttp names --help tells what it takes");
    EXPECT_EQ(complaintAbout({"geheim", "x"}, "names"),
              "2 words too many; cimhttp names --help tells what it takes");
}

}  // namespace tool
