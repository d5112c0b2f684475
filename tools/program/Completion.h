#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace tool {

/// What a person may go on to type, found in the grammar of the command line itself. A shell asks for it with
/// "--complete" and the words so far.
class Completion {
public:
    /// What the shell is told instead of words where names of files fit.
    static constexpr const char* kFiles = ":files";

    /// Whether that is what the program was started for.
    static bool isAskedFor(int argc, const char* const* argv);

    /// `words` are what stands after "--complete", the last of them, begun or empty, the one to complete.
    Completion(CLI::App& grammar, const std::vector<std::string>& words);

    /// Whole words.
    std::vector<std::string> words() const;

private:
    void pass(const std::string& word);
    CLI::Option* optionOf(const std::string& word) const;
    std::vector<CLI::Option*> positionals() const;
    CLI::App* commandsAt() const;
    std::vector<std::string> optionNames() const;
    std::vector<std::string> commandNames() const;
    std::vector<std::string> positionalWords() const;
    std::vector<std::string> candidates() const;

    std::vector<CLI::App*> commands_;  // the program and the command in it, outermost first
    CLI::Option* pending_ = nullptr;   // the option whose value comes next
    std::string config_;               // the file that names machines; empty: the usual one
    bool optionsEnded_ = false;
    std::size_t positionals_ = 0;  // of the innermost command, before the current word
    std::string current_;          // begun
    std::string prefix_;           // what of it stands before what is completed: "--format=" or nothing
};

}  // namespace tool
