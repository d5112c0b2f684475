#include "tools/program/Choice.h"

#include <sstream>

#include "tools/common/SafeText.h"

namespace tool {

std::string inQuotes(const std::string& text) {
    constexpr std::size_t kLongestShown = 24;  // so that the line about it stays short
    return "'" + cutTo(text, kLongestShown) + "'";
}

std::vector<std::string> wordsOf(CLI::Option& option) {
    std::vector<std::string> words;
    try {
        std::istringstream name(option.get_validator(0)->get_name());
        std::string word;
        if (std::getline(name, word, '|') && word == kChoice) {
            while (std::getline(name, word, '|')) {
                words.push_back(word);
            }
        }
    } catch (const CLI::OptionNotFound&) {
        // It takes anything.
    }
    return words;
}

}  // namespace tool
