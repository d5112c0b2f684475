// class NAME: a class's definition.

#include <nlohmann/json.hpp>

#include "tools/commands/Commands.h"
#include "tools/machine/SchemaCache.h"
#include "tools/print/ClassJson.h"
#include "tools/print/ClassPrinter.h"
#include "tools/values/JsonValue.h"

namespace tool {

bool runClass(const CommandContext& context) {
    SchemaCache schemas(context.session);
    const ClassSchema& schema = schemas.of(context.options.className);
    const RemoteDefinitions& definitions = context.session.definitions();
    if (context.isJson()) {
        context.output.line(
            jsonText(jsonClass(schema, definitions, context.options.all), 2, context.output.isTerminal()));
    } else {
        ClassPrinter(context.output, definitions, context.options.all).print(schema);
    }
    for (const auto& cimClass : schema.chain()) {
        sayDifferences(context, cimClass->GetName(NQELVSK20::TContext()));
    }
    return true;
}

}  // namespace tool
