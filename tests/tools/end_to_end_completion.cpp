// What the program tells a shell that completes its words.

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/support/HelpText.h"
#include "tests/tools/support/Program.h"
#include "tests/tools/support/TemporaryFolder.h"

namespace tool {

namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;
using ::testing::UnorderedElementsAreArray;
using Words = std::vector<std::string>;

Program completing(Words words) {
    words.insert(words.begin(), "--complete");
    return Program(words);
}

Words complete(const Words& words) {
    const Outcome outcome = completing(words).run();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    return linesOf(outcome.out);
}

/// A person's cache, with what programs have kept in it.
class CompletionOfClasses : public ::testing::Test {
protected:
    Outcome Run(Program program) const {
        return program.with("XDG_CACHE_HOME", cache_.path().string()).run();
    }
    Words Complete(const Words& words) const { return linesOf(Run(completing(words)).out); }

    const TemporaryFolder cache_;
};

}  // namespace

TEST(Completion, KnowsTheCommandsThatHelpLists) {
    const support::HelpText help(run({"--help"}).out);
    EXPECT_THAT(complete({""}), UnorderedElementsAreArray(help.commands));
    EXPECT_THAT(complete({"-v", "--node", "classes", "inst"}), ElementsAre("instances"));
}

TEST(Completion, KnowsTheCommandsThatCanBeRepeated) {
    EXPECT_THAT(complete({"watch", "inst"}), IsEmpty());
    EXPECT_THAT(complete({"watch", "5", "inst"}), ElementsAre("instances"));
    EXPECT_THAT(complete({"watch", "--rounds", "2", "5", "wa"}), ElementsAre("walk"));
    EXPECT_THAT(complete({"watch", "5", "instances", "--li"}), ElementsAre("--limit"));
    EXPECT_THAT(complete({"watch", "5", "instances", "--ro"}), IsEmpty());
    EXPECT_THAT(complete({"names", "CIM_Fan", "inst"}), IsEmpty());
}

TEST(Completion, KnowsTheOptionsThatHelpLists) {
    auto options = support::optionsOf(CIMHTTP_PROGRAM);
    ASSERT_THAT(options, Contains(::testing::Key("instances")));
    const std::set<std::string> ofAll = options[""];
    for (auto& [command, own] : options) {
        own.insert(ofAll.begin(), ofAll.end());
        EXPECT_THAT(complete(command.empty() ? Words{"-"} : Words{command, "-"}),
                    UnorderedElementsAreArray(own))
            << command;
    }
    EXPECT_THAT(complete({"instances", "CIM_Fan", "--li"}), ElementsAre("--limit"));
}

TEST(Completion, KnowsTheValuesOfOptions) {
    EXPECT_THAT(complete({"--format", ""}), UnorderedElementsAre("text", "json", "csv"));
    EXPECT_THAT(complete({"tree", "--transport", "h"}), UnorderedElementsAre("http", "https"));
    EXPECT_THAT(complete({"--transport=HTTPS"}), ElementsAre("--transport=https"));
    EXPECT_THAT(complete({"--user", ""}), IsEmpty());
    EXPECT_THAT(complete({"--user="}), IsEmpty());
}

TEST(Completion, LeavesNamesOfFilesToTheShell) {
    EXPECT_THAT(complete({"--password-file", "pass"}), ElementsAre(":files"));
    EXPECT_THAT(complete({"names", "--password-file=pass"}), ElementsAre(":files"));
}

TEST(Completion, TakesNoOptionsBehindTheSignThatEndsThem) {
    EXPECT_THAT(complete({"names", "--", "-"}), IsEmpty());
    EXPECT_THAT(complete({"names", "--", "--format="}), IsEmpty());
}

TEST(Completion, WithoutWordsIsAnUnknownOption) {
    const Outcome outcome = run({"--complete"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
}

TEST_F(CompletionOfClasses, KnowsThoseOfTheLastTree) {
    EXPECT_THAT(Complete({"instances", ""}), IsEmpty());
    EXPECT_EQ(Run(Program({"tree", "CIM_Sensor"})).status, 0);
    EXPECT_THAT(Complete({"instances", ""}), UnorderedElementsAre("CIM_Sensor", "CIM_NumericSensor",
                                                                  "OMC_NumericSensor", "OMC_DiscreteSensor"));
    EXPECT_EQ(Run(Program({"tree", "CIM_NumericSensor", "--format", "json"})).status, 0);
    EXPECT_THAT(Complete({"instances", ""}), UnorderedElementsAre("CIM_NumericSensor", "OMC_NumericSensor"));
}

TEST_F(CompletionOfClasses, KnowsThoseOfTheLastClasses) {
    EXPECT_EQ(Run(Program({"classes", "CIM_Sensor", "--deep"})).status, 0);
    EXPECT_THAT(Complete({"class", ""}),
                UnorderedElementsAre("CIM_NumericSensor", "OMC_NumericSensor", "OMC_DiscreteSensor"));
}

TEST_F(CompletionOfClasses, StaysAsItWasWhenThereAreNone) {
    EXPECT_EQ(Run(Program({"classes", "CIM_Sensor"})).status, 0);
    EXPECT_EQ(Run(Program({"classes", "OMC_Part"})).status, 1);
    EXPECT_EQ(Run(Program({"tree", "OMC_Nope"})).status, 1);
    EXPECT_THAT(Complete({"class", "OMC"}), ElementsAre("OMC_DiscreteSensor"));
}

TEST_F(CompletionOfClasses, TakesThemInAnyCaseWhereverAClassIsNamed) {
    EXPECT_EQ(Run(Program({"classes", "CIM_Sensor"})).status, 0);
    for (const Words& words : {Words{"tree", "omc_d"},
                               {"qualifiers", "CIM_Slot", "omc_d"},
                               {"get", "omc_d"},
                               {"invoke", "omc_d"},
                               {"walk", "-v", "--node", "x", "omc_d"}}) {
        EXPECT_THAT(Complete(words), ElementsAre("OMC_DiscreteSensor")) << words.front();
    }
    EXPECT_THAT(Complete({"invoke", "OMC_Fan", ""}), IsEmpty());
    EXPECT_THAT(Complete({"walk", "OMC_Fan", ""}), IsEmpty());
}

TEST(KeptClasses, CostNothingWhereTheyCannotBeKept) {
    const Outcome outcome = Program({"classes", "CIM_Sensor"}).with("XDG_CACHE_HOME", CIMHTTP_PROGRAM).run();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
}

}  // namespace tool
