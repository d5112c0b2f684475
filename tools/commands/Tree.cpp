// tree [CLASS]: the class hierarchy below a class.

#include <nlohmann/json.hpp>

#include "tools/commands/Commands.h"
#include "tools/common/Failure.h"
#include "tools/common/Names.h"
#include "tools/common/SafeText.h"
#include "tools/common/SeenClasses.h"
#include "tools/values/JsonValue.h"

namespace tool {

namespace {

using nlohmann::ordered_json;
using NQELVSK20::TContext;

/// What the tree tells of a class beside its name.
struct Branch {
    std::string name;
    bool isAbstract = false;
    bool isAssociation = false;
    bool isReadable = true;  ///< False: the class has a name but no definition.
};

class Tree {
public:
    explicit Tree(const CommandContext& context) : context_(context) {}

    void writeText(const std::string& className) {
        context_.output.line(className.empty() ? safeText(context_.session.nameSpaceName())
                                               : marked(fetchTop(className)));
        writeBelow(className, "");
    }

    void writeJson(const std::string& className) {
        const ordered_json json = className.empty() ? jsonBelow(className) : jsonBranch(fetchTop(className));
        context_.output.line(jsonText(json, 2, context_.output.isTerminal()));
    }

    std::vector<std::string> classes() const { return {seen_.begin(), seen_.end()}; }

private:
    // The class that was asked for must be there; those below it are shown even when they cannot be read.
    Branch fetchTop(const std::string& name) {
        seen_.insert(name);
        const Branch branch = branchOf(name, *context_.session.getClass(name));
        sayDifferences(context_, name);
        return branch;
    }

    static Branch branchOf(const std::string& name, const NQELVSK20::ICIMClass& cimClass) {
        return {name, cimClass.IsAbstract(TContext()), cimClass.IsAssociation(TContext()), true};
    }

    Branch fetch(const std::string& name) {
        context_.progress.note(std::to_string(seen_.size()) + " classes: " + name);
        try {
            const Branch branch = branchOf(name, *context_.session.getClass(name));
            sayDifferences(context_, name);
            return branch;
        } catch (const Failure& failure) {
            context_.session.sayFailure(failure);
            return {name, false, false, false};
        }
    }

    // A class that comes a second time is left out: a server's classes may be each other's subclasses.
    std::vector<std::string> namesBelow(const std::string& className) {
        std::vector<std::string> names;
        for (const std::string& name : context_.session.classNames(className)) {
            if (seen_.insert(name).second) {
                names.push_back(name);
            }
        }
        return names;
    }

    void writeBelow(const std::string& className, const std::string& lines) {
        const std::vector<std::string> names = namesBelow(className);
        for (const std::string& name : names) {
            const bool isLast = &name == &names.back();
            context_.output.line(lines + (isLast ? "└── " : "├── ") + marked(fetch(name)));
            writeBelow(name, lines + (isLast ? "    " : "│   "));
        }
    }

    static std::string marked(const Branch& branch) {
        return safeText(branch.name) + (branch.isAbstract ? " [abstract]" : "") +
               (branch.isAssociation ? " [association]" : "") + (branch.isReadable ? "" : " [not available]");
    }

    ordered_json jsonBelow(const std::string& className) {
        ordered_json array = ordered_json::array();
        for (const std::string& name : namesBelow(className)) {
            array.push_back(jsonBranch(fetch(name)));
        }
        return array;
    }

    ordered_json jsonBranch(const Branch& branch) {
        ordered_json json;
        json["name"] = branch.name;
        json["abstract"] = branch.isAbstract;
        json["association"] = branch.isAssociation;
        json["subclasses"] = jsonBelow(branch.name);
        return json;
    }

    const CommandContext& context_;
    std::set<std::string, NameLess> seen_;
};

}  // namespace

bool runTree(const CommandContext& context) {
    Tree tree(context);
    if (context.isJson()) {
        tree.writeJson(context.options.className);
    } else {
        tree.writeText(context.options.className);
    }
    const std::vector<std::string> classes = tree.classes();
    if (classes.empty()) {
        return nothingFound(context, "there are no classes in " + context.session.nameSpaceName());
    }
    SeenClasses().keep(classes);
    return true;
}

}  // namespace tool
