// get PATH: one instance.

#include <nlohmann/json.hpp>

#include "tools/BlockPrinter.h"
#include "tools/JsonPrinter.h"
#include "tools/JsonValue.h"
#include "tools/ObjectPath.h"
#include "tools/commands/Commands.h"

namespace tool {

bool runGet(const CommandContext& context) {
    const ObjectPath wanted = ObjectPath::parse(context.options.path);
    SchemaCache schemas(context.session);
    const std::string path = instancePath(wanted, schemas.of(wanted.className));
    const auto instance = context.session.getInstance(path);
    if (!instance) {
        return nothingFound(context, "there is no instance " + path);
    }
    const InstanceView view(*instance);
    if (context.isJson()) {
        context.output.line(jsonText(jsonInstance(view, {}), 2, context.output.isTerminal()));
    } else {
        BlockPrinter(context.output, schemas).print(view);
    }
    return true;
}

}  // namespace tool
