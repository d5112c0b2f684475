// names CLASS: the paths of a class's instances.

#include "tools/common/Names.h"

#include "tools/commands/Commands.h"

namespace tool {

bool runNames(const CommandContext& context) {
    const std::string& className = context.options.className;
    requireClassName(className);
    const std::vector<std::string> names = context.session.instanceNames(className);
    writeNames(context, names);
    return !names.empty() || nothingFound(context, "there are no instances of " + className);
}

}  // namespace tool
