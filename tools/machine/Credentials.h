#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "tools/machine/Node.h"

namespace tool {

/// Where passwords come from, the first that is there: a file, a program, a variable's value, the person.
/// They are never taken from the command line, which every user of the machine can read.
struct PasswordSources {
    std::string file;                                           ///< Empty: none.
    bool isFileGuarded = false;                                 ///< It is refused when others may read it.
    std::vector<std::string> command;                           ///< A program that prints it; empty: none.
    std::optional<std::string> variable;                        ///< Holds for every node.
    std::function<std::string(const std::string& prompt)> ask;  ///< Empty: there is nobody to ask.
};

/// Gives every node that has a user its password. The file holds one line for all nodes or one line a node,
/// in node order; what the program prints first and the variable hold for all; the person is asked once for
/// each user, and told the hosts. Where there is no source, nodes with a user lack their password from then
/// on. Throws UsageError when the file cannot be read or has another number of lines, and when there is a
/// file or program but no user; Failure when the program gives none.
void addPasswords(std::vector<Node>& nodes, const PasswordSources& sources);

}  // namespace tool
