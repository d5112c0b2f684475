// The manual pages have each option and command that the programs list, and none that they do not.

#include <gmock/gmock.h>

#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>

#include "tests/support/HelpText.h"
#include "tests/support/Process.h"

namespace {

using OptionsByCommand = std::map<std::string, std::set<std::string>>;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;

std::string sourceOf(const std::string& page) {
    std::ifstream file(std::string(MANUAL_PAGES) + "/" + page, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// What the pattern's last group matches in a text.
std::set<std::string> findAll(const std::string& text, const std::string& pattern) {
    const std::regex expression(pattern);
    std::set<std::string> result;
    for (std::sregex_iterator found(text.begin(), text.end(), expression), end; found != end; ++found) {
        result.insert((*found)[found->size() - 1]);
    }
    return result;
}

/// The options of a line that describes one under all its names, in bold letters each.
std::set<std::string> optionsIn(const std::string& line) {
    return findAll(line, R"(\*(--?[A-Za-z][A-Za-z0-9-]*)\*)");
}

/// What a page describes: lines that start with an option, and below COMMANDS a heading for each command.
OptionsByCommand describedIn(const std::string& page) {
    static const std::regex heading("## ([a-z-]+).*");
    OptionsByCommand described;
    std::string command;
    std::smatch match;
    for (const std::string& line : support::linesOf(sourceOf(page))) {
        if (std::regex_match(line, match, heading)) {
            command = match[1];
            described[command];
        } else if (line.rfind("# ", 0) == 0) {
            command.clear();
        } else if (line.rfind("*-", 0) == 0) {
            described[command].merge(optionsIn(line));
        }
    }
    return described;
}

/// "COMMAND OPTION" for what one has and the other has not; a command that is missing stands alone.
std::set<std::string> missing(const OptionsByCommand& from, const OptionsByCommand& in) {
    std::set<std::string> result;
    for (const auto& [command, options] : in) {
        const auto found = from.find(command);
        if (found == from.end()) {
            result.insert(command);
            continue;
        }
        for (const std::string& option : options) {
            if (found->second.count(option) == 0) {
                result.insert(command + (command.empty() ? "" : " ") + option);
            }
        }
    }
    return result;
}

void expectToAgree(const std::string& page, const std::string& program) {
    const OptionsByCommand described = describedIn(page);
    const OptionsByCommand listed = support::optionsOf(program);
    EXPECT_THAT(missing(described, listed), IsEmpty())
        << "docs/man/" << page << " lacks what --help lists; add it there";
    EXPECT_THAT(missing(listed, described), IsEmpty())
        << "docs/man/" << page << " has what --help does not list";
}

/// What is said in passing and in examples.
void expectToMentionKnownOptionsOnly(const std::string& page, const std::string& program) {
    std::set<std::string> known;
    for (const auto& [command, options] : support::optionsOf(program)) {
        known.insert(options.begin(), options.end());
    }
    for (const std::string& mentioned :
         findAll(sourceOf(page), "(^|[^A-Za-z0-9-])(--[A-Za-z][A-Za-z0-9-]*)")) {
        EXPECT_EQ(known.count(mentioned), 1U) << "docs/man/" << page << " mentions " << mentioned;
    }
}

}  // namespace

TEST(HelpText, IsReadWithTheNamesOfOptionsAndCommandsAlone) {
    const support::HelpText help(
        "Asks --nobody.\nUsage: x [OPTIONS]\n\nPositionals:\n  CLASS TEXT    Its name\n\n"
        "Options:\n  -v,--verbose                Say --more\n  --node [USER@]HOST ...\n"
        "                              A node\n\nSubcommands:\n  tree          All\n\nExit status:\n  0  "
        "answered\n\nExample:\n  x --deep\n");
    EXPECT_EQ(help.options, (std::set<std::string>{"-v", "--verbose", "--node"}));
    EXPECT_EQ(help.commands, (std::set<std::string>{"tree"}));
}

TEST(ManualPages, OfCimhttpDescribesWhatItsHelpLists) {
    EXPECT_THAT(support::optionsOf(CIMHTTP_PROGRAM)["instances"],
                IsSupersetOf({"--deep", "--columns", "--limit"}));
    expectToAgree("cimhttp.1.scd", CIMHTTP_PROGRAM);
}

TEST(ManualPages, OfCimhttpMentionsKnownOptionsOnly) {
    expectToMentionKnownOptionsOnly("cimhttp.1.scd", CIMHTTP_PROGRAM);
}

TEST(ManualPages, OfCimomDescribesWhatItsHelpLists) {
    EXPECT_THAT(support::optionsOf(CIMOM_PROGRAM)[""], IsSupersetOf({"-h", "--help", "--no-http", "--log"}));
    expectToAgree("cimom.1.scd", CIMOM_PROGRAM);
}
