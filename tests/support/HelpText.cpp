#include "tests/support/HelpText.h"

#include <regex>
#include <stdexcept>

#include "tests/support/Process.h"

namespace support {

namespace {

// An option's names stand before the first blank, with commas between them.
void addNames(const std::string& text, std::set<std::string>& names) {
    static const std::regex name("--?[A-Za-z][A-Za-z0-9-]*");
    for (std::sregex_iterator found(text.begin(), text.end(), name), end; found != end; ++found) {
        names.insert(found->str());
    }
}

HelpText helpOf(const std::vector<std::string>& command) {
    const ProcessResult result = runProcess(command);
    const HelpText help(result.out);
    if (result.status != 0 || help.options.empty()) {
        throw std::runtime_error(command.front() + " has no help: " + result.out + result.err);
    }
    return help;
}

}  // namespace

HelpText::HelpText(const std::string& text) {
    static const std::regex heading("([A-Z][A-Za-z ]*):");
    static const std::regex entry("  ([^ ]+)(?: .*)?");
    std::string section;
    std::smatch match;
    for (const std::string& line : linesOf(text)) {
        if (std::regex_match(line, match, heading)) {
            section = match[1];
        } else if (std::regex_match(line, match, entry)) {
            const std::string word = match[1];
            if (word.front() == '-') {
                addNames(word, options);
            } else if (section == "Subcommands") {
                commands.insert(word);
            }
        }
    }
}

std::map<std::string, std::set<std::string>> optionsOf(const std::string& program) {
    const HelpText whole = helpOf({program, "--help"});
    std::map<std::string, std::set<std::string>> result{{"", whole.options}};
    for (const std::string& command : whole.commands) {
        std::set<std::string>& options = result[command];
        for (const std::string& option : helpOf({program, command, "--help"}).options) {
            if (whole.options.count(option) == 0) {
                options.insert(option);
            }
        }
    }
    return result;
}

}  // namespace support
