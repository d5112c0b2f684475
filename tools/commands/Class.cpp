// class NAME: a class's definition.

#include <nlohmann/json.hpp>

#include "tools/ClassJson.h"
#include "tools/ClassPrinter.h"
#include "tools/JsonValue.h"
#include "tools/SchemaCache.h"
#include "tools/commands/Commands.h"

namespace tool {

bool runClass(const CommandContext& context) {
    SchemaCache schemas(context.session);
    const ClassSchema& schema = schemas.of(context.options.className);
    if (context.isJson()) {
        context.output.line(jsonText(jsonClass(schema, context.options.all), 2, context.output.isTerminal()));
    } else {
        ClassPrinter(context.output, context.options.all).print(schema);
    }
    return true;
}

}  // namespace tool
