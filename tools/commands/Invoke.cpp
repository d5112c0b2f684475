// invoke PATH METHOD [NAME=VALUE...]: runs a method on an instance or class.

#include <algorithm>
#include <nlohmann/json.hpp>

#include "tools/ArgumentParser.h"
#include "tools/JsonValue.h"
#include "tools/ObjectPath.h"
#include "tools/SafeText.h"
#include "tools/SchemaCache.h"
#include "tools/UsageError.h"
#include "tools/ValueText.h"
#include "tools/commands/Commands.h"

namespace tool {

namespace {

using nlohmann::ordered_json;
using NQELVSK20::TContext;

const ClassSchema::Method& methodOf(const ClassSchema& schema, const std::string& name) {
    const ClassSchema::Method* method = schema.findMethod(name);
    if (method == nullptr) {
        throw UsageError(schema.cimClass().GetName(TContext()) + " has no method '" + name + "'");
    }
    return *method;
}

void writeJson(const CommandContext& context, const Session::MethodResult& result) {
    ordered_json json;
    json["returnValue"] = jsonValue(result.value);
    json["outputs"] = ordered_json::object();
    for (const auto& [name, value] : result.outputs) {
        json["outputs"][name] = jsonValue(value);
    }
    context.output.line(jsonText(json, 2, context.output.isTerminal()));
}

void writeText(const CommandContext& context, const Session::MethodResult& result) {
    const std::string returned = "return value";
    std::size_t width = returned.size();
    for (const auto& output : result.outputs) {
        width = std::max(width, output.first.size());
    }
    context.output.line(padTo(returned, width) + "  " + valueText(result.value, nullptr));
    for (const auto& [name, value] : result.outputs) {
        context.output.line(padTo(safeText(name), width) + "  " + valueText(value, nullptr));
    }
}

}  // namespace

bool runInvoke(const CommandContext& context) {
    const Options& options = context.options;
    const ObjectPath wanted = ObjectPath::parse(options.path);
    const auto cimClass = context.session.getClass(wanted.className);
    SchemaCache schemas(context.session);
    const ClassSchema& schema = schemas.of(cimClass);
    const ClassSchema::Method& method = methodOf(schema, options.method);
    const ArgumentParser parser(*method.declaration,
                                [&](const std::string& path) { return context.session.reference(path); });
    const TContext inputs = parser.parse(options.arguments);
    const std::string path =
        wanted.keys.empty() ? cimClass->GetName(TContext()) : instancePath(wanted, schema);
    const Session::MethodResult result = context.session.invoke(*cimClass, path, method.name, inputs);
    if (context.isJson()) {
        writeJson(context, result);
    } else {
        writeText(context, result);
    }
    return true;
}

}  // namespace tool
