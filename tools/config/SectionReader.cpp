#include "tools/config/SectionReader.h"

#include <map>
#include <sstream>
#include <utility>

#include "tools/common/Nearest.h"
#include "tools/config/ConfigFault.h"

namespace tool {

namespace {

constexpr std::size_t kLongestWaitS = 3600;  // an hour, as on the command line

using ConfigTexts = std::vector<std::string>;

const std::string& textOfKey(const ConfigValue& value, const std::string& key) {
    const auto* text = std::get_if<std::string>(&value.content);
    if (text == nullptr || text->empty()) {
        throw ConfigFault(value.line, key + ": a text in quotes is expected");
    }
    return *text;
}

const ConfigTexts& textsOfKey(const ConfigValue& value, const std::string& key) {
    const auto* texts = std::get_if<ConfigTexts>(&value.content);
    bool isFit = texts != nullptr && !texts->empty();
    for (std::size_t i = 0; isFit && i < texts->size(); ++i) {
        isFit = !(*texts)[i].empty();
    }
    if (!isFit) {
        throw ConfigFault(value.line, key + ": a list of texts is expected, as in [\"a\", \"b\"]");
    }
    return *texts;
}

Transport transportIn(const ConfigValue& value, const std::string& key) {
    static const std::map<std::string, Transport> transports{
        {"https", Transport::kHttps}, {"http", Transport::kHttp}, {"auto", Transport::kAuto}};
    const auto found = transports.find(textOfKey(value, key));
    if (found == transports.end()) {
        throw ConfigFault(value.line, key + ": \"https\", \"http\" or \"auto\" is expected");
    }
    return found->second;
}

unsigned secondsIn(const ConfigValue& value, const std::string& key) {
    const auto* number = std::get_if<std::size_t>(&value.content);
    if (number == nullptr || *number == 0 || *number > kLongestWaitS) {
        throw ConfigFault(value.line, key + ": a whole number from 1 to 3600 is expected");
    }
    return static_cast<unsigned>(*number);
}

// A list where an argument holds a blank; no shell looks at either.
ConfigTexts commandIn(const ConfigValue& value, const std::string& key) {
    if (std::holds_alternative<ConfigTexts>(value.content)) {
        return textsOfKey(value, key);
    }
    std::istringstream text(textOfKey(value, key));
    ConfigTexts words;
    for (std::string word; text >> word;) {
        words.push_back(word);
    }
    if (words.empty()) {
        throw ConfigFault(value.line, key + ": a program and its arguments are expected");
    }
    return words;
}

using KeySetter = void (*)(MachineSettings&, const ConfigValue&, const std::string&);

const std::map<std::string, KeySetter>& setters() {
    static const std::map<std::string, KeySetter> all{
        {"nodes", [](MachineSettings& machine, const ConfigValue& value,
                     const std::string& key) { machine.nodes = textsOfKey(value, key); }},
        {"user", [](MachineSettings& machine, const ConfigValue& value,
                    const std::string& key) { machine.user = textOfKey(value, key); }},
        {"transport", [](MachineSettings& machine, const ConfigValue& value,
                         const std::string& key) { machine.transport = transportIn(value, key); }},
        {"namespace", [](MachineSettings& machine, const ConfigValue& value,
                         const std::string& key) { machine.nameSpace = textOfKey(value, key); }},
        {"connect-timeout", [](MachineSettings& machine, const ConfigValue& value,
                               const std::string& key) { machine.connectTimeoutS = secondsIn(value, key); }},
        {"password-file", [](MachineSettings& machine, const ConfigValue& value,
                             const std::string& key) { machine.passwordFile = textOfKey(value, key); }},
        {"password-command", [](MachineSettings& machine, const ConfigValue& value, const std::string& key) {
             machine.passwordCommand = commandIn(value, key);
         }}};
    return all;
}

KeySetter setterOf(const std::string& key, std::size_t line) {
    if (key == "password") {
        throw ConfigFault(line,
                          "a password does not belong here: name a password-file or a password-command");
    }
    const auto found = setters().find(key);
    if (found != setters().end()) {
        return found->second;
    }
    ConfigTexts known;
    for (const auto& setter : setters()) {
        known.push_back(setter.first);
    }
    throw ConfigFault(line, "there is no key " + key + suggestion(key, known));
}

}  // namespace

MachineSettings readMachine(const ConfigSection& section) {
    MachineSettings machine;
    for (const auto& [key, value] : section.values) {
        setterOf(key, value.line)(machine, value, key);
    }
    if (machine.nodes.empty()) {
        throw ConfigFault(section.line, "machine " + section.name + " has no nodes");
    }
    if (!machine.passwordFile.empty() && !machine.passwordCommand.empty()) {
        throw ConfigFault(
            section.line,
            "machine " + section.name + " has a password-file and a password-command: one is to be left out");
    }
    return machine;
}

}  // namespace tool
