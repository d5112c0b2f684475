#include "tools/machine/Credentials.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <map>

#include "tools/common/SafeText.h"
#include "tools/common/UsageError.h"

namespace tool {

namespace {

bool hasUser(const Node& node) {
    return !node.user.empty();
}

std::vector<std::string> readLines(const std::string& file) {
    std::ifstream input(file);
    std::vector<std::string> lines;
    for (std::string line; std::getline(input, line);) {
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        lines.push_back(line);
    }
    if (!input.eof()) {
        throw UsageError("--password-file '" + file + "' cannot be read: " + std::strerror(errno));
    }
    return lines;
}

void takeFromFile(std::vector<Node>& nodes, const std::string& file) {
    if (std::none_of(nodes.begin(), nodes.end(), hasUser)) {
        throw UsageError("--password-file needs a user: --user NAME or --node USER@HOST");
    }
    const std::vector<std::string> lines = readLines(file);
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
        takeFromFile(nodes, sources.file);
    } else if (sources.variable) {
        for (Node& node : nodes) {
            node.password = hasUser(node) ? *sources.variable : std::string();
        }
    } else if (sources.ask) {
        ask(nodes, sources);
    } else {
        for (Node& node : nodes) {
            node.lacksPassword = hasUser(node);
        }
    }
}

}  // namespace tool
