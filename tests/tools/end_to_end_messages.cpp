// What the program says to a person who mistyped something, and how its help is laid out.

#include <gmock/gmock.h>

#include <algorithm>

#include "tests/support/TestMachine.h"
#include "tests/tools/support/Program.h"
#include "tests/tools/support/TemporaryFile.h"
#include "tools/common/Utf8.h"

namespace tool {

namespace {

using NQELVSK20::TestMachine;
using ::testing::HasSubstr;
using ::testing::Not;
using Arguments = std::vector<std::string>;

std::size_t widthOf(const std::string& output) {
    std::size_t width = 0;
    for (const std::string& line : linesOf(output)) {
        width = std::max(width, lengthOf(line));
    }
    return width;
}

/// The line about a mistake, which it must be: one, not too long, and without two blanks in a row.
std::string mistakeIn(const Arguments& arguments) {
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.status, 2) << outcome.err;
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(linesOf(outcome.err).size(), 1U) << outcome.err;
    EXPECT_LE(widthOf(outcome.err), 100U) << outcome.err;
    EXPECT_THAT(outcome.err, Not(HasSubstr("  ")));
    return outcome.err;
}

}  // namespace

TEST(Mistake, InAnOptionsValueNamesBothAndWhatIsAllowed) {
    EXPECT_EQ(mistakeIn({"--format", "xml", "classes"}),
              "cimhttp: --format 'xml': text, json or csv is expected\n");
    EXPECT_EQ(mistakeIn({"--transport", "ftp", "classes"}),
              "cimhttp: --transport 'ftp': https, http or auto is expected\n");
    EXPECT_EQ(mistakeIn({"--timeout", "soon", "classes"}),
              "cimhttp: --timeout 'soon': a whole number from 1 to 4294967295 is expected\n");
    EXPECT_EQ(mistakeIn({"--connect-timeout", "4000", "classes"}),
              "cimhttp: --connect-timeout '4000': a whole number from 1 to 3600 is expected\n");
    EXPECT_EQ(mistakeIn({"instances", "OMC_Part", "--limit", "0"}),
              "cimhttp: --limit '0': a whole number from 1 to 18446744073709551615 is expected\n");
    EXPECT_EQ(mistakeIn({"--namespace", "root//cimv2", "classes"}),
              "cimhttp: --namespace 'root//cimv2': names between single slashes, as in root/cimv2\n");
    EXPECT_EQ(mistakeIn({"classes", "--node"}), "cimhttp: --node needs a value; cimhttp --help tells more\n");
}

TEST(Mistake, InGivingAValueToAnOptionThatTakesNoneShowsItNot) {
    EXPECT_EQ(mistakeIn({"classes", "--deep=secret"}),
              "cimhttp: an option that takes no value was given one; cimhttp --help tells more\n");
}

TEST(Mistake, InANameSuggestsTheNearest) {
    EXPECT_EQ(mistakeIn({"nmaes", "CIM_Fan"}), "cimhttp: 'nmaes' is no command; did you mean names?\n");
    EXPECT_EQ(mistakeIn({"classes", "--deeep"}), "cimhttp: unknown option --deeep; did you mean --deep?\n");
    EXPECT_EQ(mistakeIn({"invoke", "OMC_UnitaryComputerSystem", "RequestStateChagne"}),
              "cimhttp: the class has no method 'RequestStateChagne'; did you mean "
              "RequestStateChange?\n");
}

TEST(Mistake, InTheNumberOfWordsTellsWhatIsMissingOrTooMany) {
    EXPECT_EQ(mistakeIn({"names"}), "cimhttp: names needs CLASS; cimhttp names --help tells more\n");
    EXPECT_EQ(mistakeIn({"names", "A", "B"}),
              "cimhttp: 1 word too many; cimhttp names --help tells what it takes\n");
    EXPECT_EQ(mistakeIn({}), "cimhttp: a command is missing; cimhttp --help lists all\n");
}

TEST(Mistake, IsOneShortLineHoweverLongTheWord) {
    const std::string word(300, 'x');
    const TemporaryFile file("one\ntwo\n");
    for (const Arguments& arguments :
         std::vector<Arguments>{{"--" + word},
                                {"--format", word, "classes"},
                                {"--timeout", word, "classes"},
                                {"--namespace", word + "//", "classes"},
                                {"--node", word + " ", "classes"},
                                {"--node", "anna:x@b", "classes"},
                                {"--node", "b:x", "classes"},
                                {"--node", "", "classes"},
                                {"--node", "a", "--user", "u", "--password-file", file.path(), "classes"},
                                {"--format", "csv", "classes"},
                                {"names", word + "."},
                                {"get", word + " "},
                                {"get", "CIM_Fan." + word},
                                {"names", "OMC_Part", "--on", "9999999"}}) {
        mistakeIn(arguments);
    }
}

TEST(Port, OfANodeIsRefusedWithTheWayToGetThere) {
    EXPECT_EQ(
        mistakeIn({"--node", "admin@bmc1:15989", "classes"}),
        "cimhttp: --node bmc1:15989: first ssh -NL 127.0.0.9:5989:bmc1:15989 LOGIN, then --node 127.0.0.9\n");
    EXPECT_EQ(mistakeIn({"--node", "bmc1:5989", "classes"}),
              "cimhttp: --node bmc1:5989: leave the port out; it is 5989 for HTTPS and 5988 for HTTP\n");
    EXPECT_THAT(mistakeIn({"--node", "anna:secret", "classes"}), Not(HasSubstr("secret")));
}

TEST(Help, FitsATerminal) {
    EXPECT_LE(widthOf(run({"--help"}).out), 80U);
    for (const char* command :
         {"classes", "names", "walk", "class", "tree", "qualifiers", "instances", "get", "invoke"}) {
        EXPECT_LE(widthOf(run({command, "--help"}).out), 80U) << command;
    }
}

TEST(ClassName, ThatIsUnknownSuggestsTheNearest) {
    for (const char* command : {"class", "names", "instances", "classes", "tree", "walk"}) {
        const Outcome outcome = run({command, "OMC_NumericSensr"});
        EXPECT_EQ(outcome.status, 1) << command;
        ASSERT_EQ(linesOf(outcome.err).size(), 2U) << outcome.err;
        EXPECT_EQ(linesOf(outcome.err).back(), "cimhttp: did you mean OMC_NumericSensor?") << command;
    }
}

TEST(ClassName, ThatResemblesNoneIsAllThatIsSaid) {
    EXPECT_EQ(linesOf(run({"class", "X_SomethingElse"}).err).size(), 1U);
}

TEST(ClassName, IsNotGuessedLongerThanTheServerAnswers) {
    TestMachine machine(1);
    cimom::Fault fault;
    fault.kind = cimom::Fault::Kind::CloseBeforeAnswer;
    fault.operation = "EnumerateClassNames";
    machine.Server().inject(fault);
    const Outcome outcome = run({"--node", machine.Host(0), "class", "OMC_NumericSensr"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(linesOf(outcome.err).size(), 1U) << outcome.err;
    const std::vector<std::string> requests = machine.Requests();
    EXPECT_EQ(std::count(requests.begin(), requests.end(), "0 EnumerateClassNames "), 1);
}

}  // namespace tool
