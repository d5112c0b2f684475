#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <utility>
#include <vector>

#include "tools/common/Names.h"

namespace tool {

/// What a validator's name begins with whose words follow, each after a '|'.
constexpr const char* kChoice = "one of";

/// What a person typed, for a message: shortened, in quotes.
std::string inQuotes(const std::string& text);

/// For an option whose values are these words, whatever their case; leaves the number of what the word stands
/// for. It says nothing of itself in the help, and its words can be asked for.
template <typename CHOICE>
CLI::Validator oneOf(const std::vector<std::pair<std::string, CHOICE>>& choices) {
    const auto read = [choices](std::string& text) {
        std::string words;
        for (const auto& [word, choice] : choices) {
            if (sameName(word, text)) {
                text = std::to_string(static_cast<int>(choice));
                return std::string();
            }
            words += (words.empty() ? "" : word == choices.back().first ? " or " : ", ") + word;
        }
        return inQuotes(text) + ": " + words + " is expected";
    };
    std::string name = kChoice;
    for (const auto& choice : choices) {
        name += "|" + choice.first;
    }
    return CLI::Validator(read, "", name);
}

/// The words of an option that was given such a validator first; none for another option.
std::vector<std::string> wordsOf(CLI::Option& option);

}  // namespace tool
