// bash and zsh with the scripts that complete words for them.

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/support/HelpText.h"
#include "tests/support/Process.h"

namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;
using ::testing::UnorderedElementsAreArray;
using Words = std::vector<std::string>;

Words run(const Words& command) {
    const support::ProcessResult result = support::runProcess(command);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
    return support::linesOf(result.out);
}

/// Sources a script and calls the function that it registers for a program, as readline does at the end of
/// `words`: what stands there before was cut as bash cuts it. compopt works in readline only; here it says
/// what it was told.
constexpr const char* kInBash = R"bash(
source "$1" || exit
program=$2
shift 2
compopt() { echo "compopt $*"; }
COMP_WORDS=("$program" "$@") COMP_CWORD=$#
COMP_LINE=$program
for word; do
    [[ $word == = || ${COMP_LINE: -1} == = ]] || COMP_LINE+=' '
    COMP_LINE+=$word
done
COMP_POINT=${#COMP_LINE}
function=$(complete -p "${program##*/}" | sed 's/.*-F \([^ ]*\) .*/\1/')
"$function" "$program" "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD-1]}"
[ ${#COMPREPLY[@]} = 0 ] || printf '%s\n' "${COMPREPLY[@]}"
)bash";

/// The same for zsh's functions, which are files; the functions that they call say what they were told.
constexpr const char* kInZsh = R"zsh(
script=$1
shift
_files() { print -r -- files }
compset() { print -r -- "compset $*" }
compadd() { print -rl -- ${(P)@[-1]} }
complete_it() {
    local -a words=("$@")
    local CURRENT=$# PREFIX=${@[-1]}
    source $script
}
complete_it "$@"
)zsh";

Words inBash(const std::string& script, Words words) {
    words.insert(words.begin(), {"bash", "--norc", "-c", kInBash, "bash", script});
    return run(words);
}

Words inZsh(const std::string& script, Words words) {
    words.insert(words.begin(), {"zsh", "-f", "-c", kInZsh, "zsh", script});
    return run(words);
}

Words cimhttpInBash(Words words) {
    words.insert(words.begin(), CIMHTTP_PROGRAM);
    return inBash(std::string(CIMHTTP_COMPLETION) + "/cimhttp", words);
}

Words cimhttpInZsh(Words words) {
    words.insert(words.begin(), CIMHTTP_PROGRAM);
    return inZsh(std::string(CIMHTTP_COMPLETION) + "/_cimhttp", words);
}

std::set<std::string> longOptionsOfCimom() {
    std::set<std::string> options = support::optionsOf(CIMOM_PROGRAM)[""];
    options.erase("-h");
    return options;
}

}  // namespace

TEST(Bash, CompletesCommandsAndOptions) {
    EXPECT_THAT(cimhttpInBash({""}), Contains("instances"));
    EXPECT_THAT(cimhttpInBash({"inst"}), ElementsAre("instances"));
    EXPECT_THAT(cimhttpInBash({"--node", "admin@bmc", "instances", "--col"}), ElementsAre("--columns"));
    EXPECT_THAT(cimhttpInBash({"nothing-like-this"}), IsEmpty());
}

TEST(Bash, CompletesValuesOfOptionsAsSeparateWordsAndBehindTheEqualsSign) {
    EXPECT_THAT(cimhttpInBash({"--format", "j"}), ElementsAre("json"));
    EXPECT_THAT(cimhttpInBash({"--format", "=", "j"}), ElementsAre("json"));
    EXPECT_THAT(cimhttpInBash({"--transport", "="}), UnorderedElementsAre("auto", "http", "https"));
}

TEST(Bash, CompletesNamesOfFiles) {
    EXPECT_THAT(cimhttpInBash({"--password-file", "x"}), ElementsAre("compopt -o default"));
}

TEST(Bash, CompletesTheOptionsOfTheServerThatItsHelpLists) {
    const std::string script = std::string(CIMOM_COMPLETION) + "/cimom";
    EXPECT_THAT(inBash(script, {CIMOM_PROGRAM, "--"}), UnorderedElementsAreArray(longOptionsOfCimom()));
    EXPECT_THAT(inBash(script, {CIMOM_PROGRAM, "--lo"}), UnorderedElementsAre("--load", "--log"));
    EXPECT_THAT(inBash(script, {CIMOM_PROGRAM, "--load", "x"}), IsEmpty());
}

TEST(Zsh, CompletesCommandsAndOptions) {
    EXPECT_THAT(cimhttpInZsh({""}), Contains("instances"));
    EXPECT_THAT(cimhttpInZsh({"inst"}), ElementsAre("instances"));
    EXPECT_THAT(cimhttpInZsh({"--node", "admin@bmc", "instances", "--col"}), ElementsAre("--columns"));
}

TEST(Zsh, CompletesValuesOfOptionsAsSeparateWordsAndBehindTheEqualsSign) {
    EXPECT_THAT(cimhttpInZsh({"--format", "j"}), ElementsAre("json"));
    EXPECT_THAT(cimhttpInZsh({"--format=j"}), ElementsAre("--format=json"));
}

TEST(Zsh, CompletesNamesOfFiles) {
    EXPECT_THAT(cimhttpInZsh({"--password-file=x"}), ElementsAre("compset -P *=", "files"));
}

TEST(Zsh, CompletesTheOptionsOfTheServerThatItsHelpLists) {
    const std::string script = std::string(CIMOM_COMPLETION) + "/_cimom";
    EXPECT_THAT(inZsh(script, {CIMOM_PROGRAM, "--"}), UnorderedElementsAreArray(longOptionsOfCimom()));
    EXPECT_THAT(inZsh(script, {CIMOM_PROGRAM, "--load", "NS=x"}), ElementsAre("compset -P *=", "files"));
}
