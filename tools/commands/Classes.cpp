// classes [CLASS]: class names below a class.

#include <algorithm>
#include <functional>

#include "tools/commands/Commands.h"
#include "tools/common/Names.h"
#include "tools/common/SeenClasses.h"

namespace tool {

namespace {

// Appends the names below a class, each followed by those below it. `seen` guards against a server whose
// classes are each other's subclasses.
void collect(const CommandContext& context, const std::string& className,
             std::set<std::string, NameLess>& seen, std::vector<std::string>& names) {
    for (const std::string& name : context.session.classNames(className)) {
        if (seen.insert(name).second) {
            names.push_back(name);
            context.progress.note(std::to_string(names.size()) + " classes: " + name);
            collect(context, name, seen, names);
        }
    }
}

std::vector<std::string> namesBelow(const CommandContext& context, const std::string& className) {
    if (!context.options.deep) {
        return context.session.classNames(className);
    }
    std::set<std::string, NameLess> seen;
    std::vector<std::string> names;
    collect(context, className, seen, names);
    return names;
}

}  // namespace

bool runClasses(const CommandContext& context) {
    const std::string& className = context.options.className;
    if (!className.empty()) {
        requireClassName(className);
    }
    const std::vector<std::string> names = namesBelow(context, className);
    writeNames(context, names);
    if (names.empty()) {
        return nothingFound(context, className.empty()
                                         ? "there are no classes in " + context.session.nameSpaceName()
                                         : "there are no classes below " + className);
    }
    SeenClasses().keep(names);
    return true;
}

}  // namespace tool
