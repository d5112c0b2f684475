#include "tools/machine/Credentials.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <map>
#include <sstream>

#include "tools/common/SafeText.h"
#include "tools/common/UsageError.h"
#include "tools/config/GuardedFile.h"
#include "tools/config/SecretCommand.h"

namespace tool {

namespace {

bool hasUser(const Node& node) {
    return !node.user.empty();
}

std::vector<std::string> linesIn(std::istream& input) {
    std::vector<std::string> lines;
    for (std::string line; std::getline(input, line);) {
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> readLines(const std::string& file) {
    std::ifstream input(file);
    std::vector<std::string> lines = linesIn(input);
    if (!input.eof()) {
        throw UsageError("--password-file '" + file + "' cannot be read: " + std::strerror(errno));
    }
    return lines;
}

std::vector<std::string> readGuardedLines(const std::string& file) {
    std::istringstream input(readGuarded(file, Guard::kAgainstReading));
    return linesIn(input);
}

void requireSomeUser(const std::vector<Node>& nodes, const std::string& source) {
    if (std::none_of(nodes.begin(), nodes.end(), hasUser)) {
        throw UsageError(source + " needs a user: --user NAME or --node USER@HOST");
    }
}

void takeForAll(std::vector<Node>& nodes, const std::string& password) {
    for (Node& node : nodes) {
        node.password = hasUser(node) ? password : std::string();
    }
}

void takeFromFile(std::vector<Node>& nodes, const PasswordSources& sources) {
    const std::string& file = sources.file;
    requireSomeUser(nodes, "--password-file");
    const std::vector<std::string> lines = sources.isFileGuarded ? readGuardedLines(file) : readLines(file);
    if (lines.size() != 1 && lines.size() != nodes.size()) {
        throw UsageError("--password-file '" + cutTo(file, 38) + "' has " + std::to_string(lines.size()) +
                         " lines, not 1 for all or each");
    }
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        if (hasUser(nodes[i])) {
            nodes[i].password = lines.size() == 1 ? lines.front() : lines[i];
        }
    }
}

// The user and where the password goes, since one may have several.
std::string promptFor(const std::string& user, const std::vector<Node>& nodes) {
    std::string hosts;
    for (const Node& node : nodes) {
        if (node.user == user) {
            hosts += (hosts.empty() ? "" : ", ") + node.host;
        }
    }
    return "Password of " + user + " at " + hosts + ": ";
}

void ask(std::vector<Node>& nodes, const PasswordSources& sources) {
    std::map<std::string, std::string> answers;  // by user
    for (Node& node : nodes) {
        if (!hasUser(node)) {
            continue;
        }
        const auto known = answers.find(node.user);
        node.password = known != answers.end()
                            ? known->second
                            : answers[node.user] = sources.ask(promptFor(node.user, nodes));
    }
}

}  // namespace

void addPasswords(std::vector<Node>& nodes, const PasswordSources& sources) {
    if (!sources.file.empty()) {
        takeFromFile(nodes, sources);
    } else if (!sources.command.empty()) {
        requireSomeUser(nodes, "password-command");
        takeForAll(nodes, firstLineOf(sources.command));
    } else if (sources.variable) {
        takeForAll(nodes, *sources.variable);
    } else if (sources.ask) {
        ask(nodes, sources);
    } else {
        for (Node& node : nodes) {
            node.lacksPassword = hasUser(node);
        }
    }
}

}  // namespace tool
