#include "tools/program/Completion.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <string_view>

#include "tools/common/Names.h"
#include "tools/common/SeenClasses.h"
#include "tools/config/MachineConfig.h"
#include "tools/program/Choice.h"

namespace tool {

namespace {

constexpr std::string_view kAsking = "--complete";
constexpr std::string_view kRepeating = "watch";  // another command stands behind its own arguments

bool looksLikeOption(const std::string& word) {
    return word.size() > 1 && word.front() == '-';
}

bool takesValue(const CLI::Option& option) {
    return option.get_items_expected_max() > 0;
}

bool isListed(const std::string& group) {
    return !group.empty();
}

std::vector<CLI::App*> commandsIn(CLI::App& command) {
    return command.get_subcommands([](const CLI::App* inner) { return isListed(inner->get_group()); });
}

CLI::App* findCommand(CLI::App& command, const std::string& name) {
    const std::vector<CLI::App*> commands = commandsIn(command);
    const auto found = std::find_if(commands.begin(), commands.end(),
                                    [&name](const CLI::App* inner) { return inner->get_name() == name; });
    return found == commands.end() ? nullptr : *found;
}

// Those that can be read; what keeps others from it is told when one is asked.
std::vector<std::string> machineNames(const std::string& config) {
    try {
        return MachineConfig(config).names();
    } catch (const std::exception&) {
        return {};
    }
}

std::vector<std::string> valueWords(CLI::Option& option) {
    return option.get_type_name() == "FILE" ? std::vector<std::string>{Completion::kFiles} : wordsOf(option);
}

// Names are typed in any case.
bool beginsWith(const std::string& word, std::string_view beginning) {
    return word.size() >= beginning.size() &&
           sameName(std::string_view(word).substr(0, beginning.size()), beginning);
}

}  // namespace

bool Completion::isAskedFor(int argc, const char* const* argv) {
    return argc > 2 && argv[1] == kAsking;
}

Completion::Completion(CLI::App& grammar, const std::vector<std::string>& words)
    : commands_{&grammar}, current_(words.back()) {
    std::for_each(words.begin(), words.end() - 1, [this](const std::string& word) { pass(word); });
    const std::size_t equals = current_.find('=');
    if (pending_ == nullptr && !optionsEnded_ && looksLikeOption(current_) && equals != std::string::npos) {
        pending_ = optionOf(current_.substr(0, equals));
        prefix_ = current_.substr(0, equals + 1);
        current_.erase(0, equals + 1);
    }
}

void Completion::pass(const std::string& word) {
    if (pending_ != nullptr) {
        config_ = pending_->check_lname("config") ? word : config_;
        pending_ = nullptr;
    } else if (!optionsEnded_ && word == "--") {
        optionsEnded_ = true;
    } else if (!optionsEnded_ && looksLikeOption(word)) {
        CLI::Option* option = optionOf(word);
        if (option != nullptr && takesValue(*option)) {
            pending_ = option;
        }
    } else if (CLI::App* command = findCommand(*commandsAt(), word)) {
        commands_ = {commands_.front(), command};
        positionals_ = 0;
    } else {
        ++positionals_;
    }
}

// A command's options and, since those may stand behind it, the program's.
CLI::Option* Completion::optionOf(const std::string& word) const {
    for (CLI::App* command : commands_) {
        if (CLI::Option* option = command->get_option_no_throw(word)) {
            return option;
        }
    }
    return nullptr;
}

std::vector<CLI::Option*> Completion::positionals() const {
    return commands_.back()->get_options([](const CLI::Option* option) { return option->get_positional(); });
}

// The one whose commands may stand here.
CLI::App* Completion::commandsAt() const {
    const bool isBehind = commands_.back()->get_name() == kRepeating && positionals_ >= positionals().size();
    return isBehind ? commands_.front() : commands_.back();
}

std::vector<std::string> Completion::optionNames() const {
    std::vector<std::string> names;
    for (CLI::App* command : commands_) {
        for (const CLI::Option* option : command->get_options()) {
            if (isListed(option->get_group())) {
                for (const std::string& name : option->get_lnames()) {
                    names.push_back("--" + name);
                }
                for (const std::string& name : option->get_snames()) {
                    names.push_back("-" + name);
                }
            }
        }
    }
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

std::vector<std::string> Completion::commandNames() const {
    std::vector<std::string> names;
    for (const CLI::App* command : commandsIn(*commandsAt())) {
        if (command != commands_.back()) {
            names.push_back(command->get_name());
        }
    }
    return names;
}

std::vector<std::string> Completion::positionalWords() const {
    const std::vector<CLI::Option*> all = positionals();
    if (all.empty()) {
        return {};
    }
    CLI::Option& option = *all[std::min(positionals_, all.size() - 1)];
    if (positionals_ >= all.size() && option.get_items_expected_max() <= 1) {
        return {};
    }
    const std::string name = option.get_name(true);
    // A path begins with its class, and a method's "path" may be one.
    return name == "CLASS" || name == "PATH" ? SeenClasses().names() : valueWords(option);
}

std::vector<std::string> Completion::candidates() const {
    if (pending_ != nullptr) {
        return pending_->check_lname("machine") ? machineNames(config_) : valueWords(*pending_);
    }
    if (!prefix_.empty()) {
        return {};
    }
    if (!optionsEnded_ && !current_.empty() && current_.front() == '-') {
        return optionNames();
    }
    std::vector<std::string> words = commandNames();
    return words.empty() ? positionalWords() : words;
}

std::vector<std::string> Completion::words() const {
    std::vector<std::string> words;
    for (const std::string& candidate : candidates()) {
        if (candidate == kFiles) {
            words.push_back(candidate);
        } else if (beginsWith(candidate, current_)) {
            words.push_back(prefix_ + candidate);
        }
    }
    return words;
}

}  // namespace tool
