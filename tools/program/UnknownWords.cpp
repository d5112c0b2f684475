#include "tools/program/UnknownWords.h"

#include <algorithm>

#include "tools/common/Nearest.h"
#include "tools/common/SafeText.h"

namespace tool {

namespace {

constexpr std::size_t kLongestName = 24;  // of an option's name, so that the line stays short
constexpr const char* kSeeHelp = "; cimhttp --help lists all";

bool isOption(const std::string& word) {
    return word.size() > 1 && word.front() == '-';
}

}  // namespace

// What follows an equals sign or a short option's letter is a value.
std::vector<std::string> UnknownWords::optionNames() const {
    std::vector<std::string> names;
    for (const std::string& word : words) {
        if (isOption(word)) {
            const std::string name = word[1] == '-' ? word.substr(0, word.find('=')) : word.substr(0, 2);
            names.push_back(cutTo(name, kLongestName));
        }
    }
    return names;
}

std::string UnknownWords::complaint() const {
    const std::vector<std::string> names = optionNames();
    if (!names.empty()) {
        if (std::find(options.begin(), options.end(), names.front()) != options.end()) {
            return names.front() + " stands behind the command that it belongs to" + kSeeHelp;
        }
        const std::string more = names.size() > 1 ? " and " + std::to_string(names.size() - 1) + " more" : "";
        const std::string meant = suggestion(names.front(), options);
        return "unknown option " + names.front() + more + (meant.empty() ? kSeeHelp : meant);
    }
    if (!command.empty()) {
        return std::to_string(words.size()) + " word" + (words.size() == 1 ? "" : "s") +
               " too many; cimhttp " + command + " --help tells what it takes";
    }
    if (words.empty()) {
        return std::string("a command is missing") + kSeeHelp;
    }
    const std::string meant = suggestion(words.front(), commands);
    return meant.empty() ? std::string("there is no such command") + kSeeHelp
                         : "'" + words.front() + "' is no command" + meant;
}

}  // namespace tool
